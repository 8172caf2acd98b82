# The short road. `make demo` and `make test` work on a fresh Debian machine: both install what they need first.
PACKAGES = g++ clang cmake ninja-build make pkg-config libgtest-dev libbenchmark-dev libmpfr-dev \
           libsndfile1-dev gnuplot-nox libfftw3-dev libvolk2-dev libliquid-dev libsleef-dev libopenblas-dev libeigen3-dev \
           libsamplerate0-dev libsoxr-dev \
           clang-format clang-tidy
BUILD_PACKAGES = g++ cmake ninja-build
PACKAGING_PACKAGES = $(BUILD_PACKAGES) debhelper dpkg-dev fakeroot lintian pkg-config man-db
ABI_PACKAGES = $(BUILD_PACKAGES) abigail-tools
TOOL_PACKAGES = $(BUILD_PACKAGES) pkg-config libcli11-dev libsndfile1-dev libfmt-dev nlohmann-json3-dev libpng-dev
TOOL_TEST_PACKAGES = $(TOOL_PACKAGES) sox tmux mandoc bash-completion python3-pytest python3-numpy python3-scipy python3-pil
DOCS_PACKAGES = doxygen python3 man-db
IN ?= examples/data/speech.wav
OUT ?= demo-out.wav
RATE ?= 48000
JOBS ?= $(shell nproc)
build = cmake --preset $(1) >/dev/null && cmake --build --preset $(1) -j $(JOBS)

# FAMILY=zorsFIR_32f, FAMILY='Sort.*32f': the tests of the files in which the expression stands, and no others.
FAMILY ?=
run_tests = $(if $(FAMILY),tests/run_family.sh $(1) '$(FAMILY)',$(call build,$(1)) && ctest --preset $(1) -j $(JOBS))

.PHONY: help setup demo demo-dtmf demo-resample demo-find demo-equaliser test test-clang sanitize sanitize-library tsan \
        bench accuracy format lint lint-all setup-install install setup-packages packages test-packages setup-abi \
        library-for-abi abi abi-update setup-python python test-python bench-python setup-tools setup-tool-tests tool \
        test-tool bench-tool clean
.PHONY: help setup demo demo-dtmf demo-resample demo-find demo-equaliser test test-clang sanitize tsan bench accuracy format lint lint-all setup-install install setup-packages packages test-packages setup-abi library-for-abi abi abi-update setup-docs docs test-docs clean
help:
	@sed -n 's/^## //p' Makefile

## make setup      install the Debian packages that are missing
setup:
	@missing=$$(for p in $(PACKAGES); do dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'ok installed' || echo $$p; done); \
	if [ -n "$$missing" ]; then \
	  echo "installing: $$missing"; sudo=$$([ "$$(id -u)" = 0 ] || echo sudo); \
	  $$sudo apt-get update -qq && DEBIAN_FRONTEND=noninteractive $$sudo apt-get install -y -qq --no-install-recommends $$missing; \
	fi

## make setup-python   what the Python package needs: to be built, tested and measured
PYTHON_PACKAGES = python3 python3-dev python3-venv python3-pip python3-setuptools python3-wheel python3-cffi python3-pycparser \
                  python3-numpy python3-scipy python3-pytest python3-hypothesis python3-dask python3-distributed python3-matplotlib \
                  mypy
setup-python:
	@$(MAKE) --no-print-directory setup PACKAGES='$(PYTHON_PACKAGES)'

## make demo       filter a recording to the telephone band: make demo IN=file.wav OUT=file.wav
demo: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target telephone_band | tail -1
	@./build/gcc-release/examples/telephone_band "$(IN)" "$(OUT)"

## make demo-dtmf  the digits in a recording of a telephone's tones; without IN=file.wav a number is dialled here
demo-dtmf: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target dialled_number | tail -1
	@./build/gcc-release/examples/dialled_number "$(if $(filter command line,$(origin OUT)),$(OUT),dtmf-out.wav)" $(if $(filter command line,$(origin IN)),"$(IN)")
## make demo-resample  bring a recording to another sample rate: make demo-resample IN=file.wav OUT=file.wav RATE=48000
demo-resample: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target resample | tail -1
	@./build/gcc-release/examples/resample "$(IN)" "$(OUT)" "$(RATE)"

## make demo-find  look for a sound in a recording: make demo-find IN=file.wav SOUND=file.wav; without SOUND for a piece of it
demo-find: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target find_sound | tail -1
	@./build/gcc-release/examples/find_sound "$(IN)" $(if $(SOUND),"$(SOUND)")

## make pictures   draw the windows and their spectra and what resamplers add into docs/
pictures: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target window_pictures resampler_pictures | tail -1
	@./build/gcc-release/examples/window_pictures docs
	@./build/gcc-release/examples/resampler_pictures docs
## make demo-equaliser  an equaliser of five bands: make demo-equaliser IN=file.wav OUT=file.wav GAINS="-12 3 0 9 -9"
demo-equaliser: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target equaliser | tail -1
	@./build/gcc-release/examples/equaliser "$(IN)" "$(OUT)" $(GAINS)

## make test       build with g++ and run all tests; FAMILY=regex those of the files that name it
test: setup
	$(call run_tests,gcc-release)
## make test-clang the same with clang++
test-clang: setup
	$(call run_tests,clang-release)

## make sanitize   the tests built by clang++ under AddressSanitizer and UndefinedBehaviorSanitizer
sanitize: setup
	$(call run_tests,clang-sanitize)

## make sanitize-library  the library alone built so, beneath the test programs that g++ built
sanitize-library: setup
	$(call build,gcc-release)
	cmake --preset clang-sanitize >/dev/null && cmake --build --preset clang-sanitize -j $(JOBS) --target zorsl9 zorcore
	tests/sanitized_library.sh build/gcc-release/tests $(CURDIR)/build/clang-sanitize/src $(JOBS)

## make tsan       the tests of threads under ThreadSanitizer
tsan: setup
	cmake --preset clang-tsan >/dev/null && cmake --build --preset clang-tsan -j $(JOBS) --target fft_tests
	./build/clang-tsan/tests/fft_tests --gtest_filter='*Thread*'

## make bench      speeds beside peers and bounds; BENCH=regex picks rows
bench: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target benchmarks | tail -1
	@for program in build/gcc-release/bench/*_bench; do $$program $(if $(BENCH),--benchmark_filter='$(BENCH)'); done

## make accuracy   errors of the transcendental functions and of the transforms, as tables (minutes)
accuracy: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target accuracy | tail -1
	@for program in build/gcc-release/accuracy/*_accuracy; do $$program; done

## make python     the wheel of the Python package, with the libraries inside, tested in a clean virtual environment
PYTHON = /usr/bin/python3
wheel = build/python/wheel
python: setup-python
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target zorsl9 zorcore | tail -1
	@rm -rf build/python && cmake --install build/gcc-release --prefix build/python/prefix >/dev/null
	@mkdir -p python/zorsl9/lib && rm -f python/zorsl9/lib/*
	@cp -L build/python/prefix/lib/libzorsl9.so.8 build/python/prefix/lib/libzorcore-8.2.so python/zorsl9/lib/
	@cd python && ZORSL9_INCLUDE=$(CURDIR)/build/python/prefix/include ZORSL9_LIBDIR=$(CURDIR)/build/python/prefix/lib \
	  $(PYTHON) -m pip -q wheel --no-deps --no-build-isolation -w ../$(wheel) .
	@$(PYTHON) -m venv --system-site-packages build/python/venv && build/python/venv/bin/python -m pip -q install --no-deps --no-index $(wheel)/*.whl
	@cd build/python && venv/bin/python -c 'import zorsl9; assert "venv" in zorsl9.__file__; print("zorsl9", zorsl9.__version__, zorsl9.__file__)'
	@ls -l $(wheel)
	@cd build/python && venv/bin/python -m pytest -q -p no:cacheprovider ../../python/tests/test_raw.py ../../python/tests/test_fft.py

## make test-python  all tests of the package as the wheel installs it, SciPy's own of scipy.fft among them
test-python: python
	@cd build/python && venv/bin/python -m pytest -q -p no:cacheprovider ../../python/tests

## make bench-python  speeds beside NumPy and SciPy
bench-python: python
	@cd build/python && venv/bin/python ../../python/bench.py

## make format     clang-format over all sources
format:
	clang-format -i $$(git ls-files '*.cpp' '*.h' '*.hpp' '*.c')

## make lint       clang-tidy over the sources that differ from main (BASE=commit); make lint-all over all
BASE ?= $(shell git merge-base HEAD origin/main 2>/dev/null || git rev-parse HEAD~1)
tidy = clang-tidy -p build/clang-release --quiet
lint: setup
	@cmake --preset clang-release >/dev/null && cmake --build --preset clang-release --target exports_by_section >/dev/null
	@changed=$$( (git diff --name-only --diff-filter=d $(BASE) -- 'src/*.cpp'; git ls-files -o --exclude-standard 'src/*.cpp') | sort -u); \
	[ -z "$$changed" ] || echo $$changed | xargs -n 4 -P $(JOBS) $(tidy)
lint-all: setup
	@cmake --preset clang-release >/dev/null && cmake --build --preset clang-release --target exports_by_section >/dev/null
	git ls-files 'src/*.cpp' | xargs -n 4 -P $(JOBS) $(tidy)

## make install    install library and headers (after make tool: the program too) below PREFIX (default /usr/local); DESTDIR is put in front
PREFIX ?= /usr/local
setup-install:
	@$(MAKE) --no-print-directory setup PACKAGES='$(BUILD_PACKAGES)'
install: setup-install
	@[ -f build/gcc-release/build.ninja ] || cmake --preset gcc-release -DZORS_TESTS=OFF -DZORS_BENCH=OFF -DZORS_DEMO=OFF >/dev/null
	cmake --build build/gcc-release -j $(JOBS) --target zorsl9 zorcore $$(grep -q 'ZORS_TOOL:BOOL=ON' build/gcc-release/CMakeCache.txt && echo zors)
	cmake --install build/gcc-release --prefix $(PREFIX)

## make packages   Debian packages into build/packages; with the manual where `make docs` has made it
packages = build/packages
setup-packages:
	@$(MAKE) --no-print-directory setup PACKAGES='$(PACKAGING_PACKAGES)'
packages: setup-packages
	@rm -rf $(packages) && mkdir -p $(packages)
	@ZORS_PACKAGES=$(packages) dpkg-buildpackage -b -us -uc -j$(JOBS) --buildinfo-option=-u$(packages) --changes-option=-u$(packages) \
	  --buildinfo-file=$(packages)/zorsl9.buildinfo --changes-file=$(packages)/zorsl9.changes
	@ls -l $(packages)/*.deb

## make test-packages  the packages under lintian, then installed, used and removed in a scratch copy of this system
test-packages: packages
	tests/packages/run.sh $(packages)

## make abi        the binary interface beside its record: what is gone or changed fails; make abi-update records what is new
setup-abi:
	@$(MAKE) --no-print-directory setup PACKAGES='$(ABI_PACKAGES)'
library-for-abi: setup-abi
	@[ -f build/gcc-release/build.ninja ] || cmake --preset gcc-release -DZORS_TESTS=OFF -DZORS_BENCH=OFF -DZORS_DEMO=OFF >/dev/null
	@cmake --build build/gcc-release -j $(JOBS) --target zorsl9 zorcore | tail -1
abi: library-for-abi
	@tests/abi/run.sh check build/gcc-release && tests/abi/refuses.sh build/gcc-release
abi-update: library-for-abi
	@tests/abi/run.sh update build/gcc-release && git diff --stat tests/abi
## make tool       build the program zors, with the library, (CMake: ZORS_TOOL=ON)
setup-tools:
	@$(MAKE) --no-print-directory setup PACKAGES='$(TOOL_PACKAGES)'
setup-tool-tests:
	@$(MAKE) --no-print-directory setup PACKAGES='$(TOOL_TEST_PACKAGES)'
tool: setup-tools
	@cmake --preset gcc-release -DZORS_TOOL=ON >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target zors | tail -1
## make test-tool  the program's tests, end to end, beside sox
test-tool: setup-tool-tests tool
	ZORS=build/gcc-release/tools/zors/zors /usr/bin/python3 -m pytest -q tests/tool
## make bench-tool the program's speed beside sox
bench-tool: setup-tool-tests tool
	ZORS=build/gcc-release/tools/zors/zors /usr/bin/python3 tests/tool/bench.py

## make docs       the manual into build/docs: HTML with a search that needs no server, a man page for each export
setup-docs:
	@$(MAKE) --no-print-directory setup PACKAGES='$(DOCS_PACKAGES)'
docs: setup-docs
	@rm -rf build/docs && mkdir -p build/docs
	doxygen docs/Doxyfile
	docs/check_documented.py build/docs
	@rm -rf build/docs/xml

## make test-docs  the manual, its links, and every program of the guides compiled, linked and run
test-docs: docs setup-install
	docs/check_links.py README.md docs/guide/*.md
	@[ -f build/gcc-release/build.ninja ] || cmake --preset gcc-release -DZORS_TESTS=OFF -DZORS_BENCH=OFF -DZORS_DEMO=OFF >/dev/null
	cmake --build build/gcc-release -j $(JOBS) --target zorsl9 zorcore
	docs/check_snippets.py build/gcc-release README.md docs/guide/*.md

## make clean      remove the build folder
clean:
	rm -rf build
