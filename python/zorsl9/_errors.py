"""What goes wrong: ZorsError for a status below 0, ZorsWarning for one above."""


class ZorsError(Exception):
    """A function of the library refused its arguments.

    Attributes: ``function``, ``status`` (a number below 0), ``name`` (as zors.h spells it), ``text``.
    """

    def __init__(self, function, status, name, text):
        super().__init__(f"{function}: {text} ({name}, {status})")
        self.function, self.status, self.name, self.text = function, status, name, text

    def __reduce__(self):
        return ZorsError, (self.function, self.status, self.name, self.text)


class ZorsWarning(RuntimeWarning):
    """The output is complete, and a warning of the library (a status above 0) came with it."""
