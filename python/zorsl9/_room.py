"""How many elements each array of a raw call must have, as expressions over the call's other arguments.

Sizes are nowhere in a C prototype, but the headers name arguments by one convention, so a few rules by name hold for
all functions; `room()` finds the one that applies. In an expression stand the names of the arguments and

  state, spec   what is known about a filter or transform that was built before, see FACTS
  ceil(a, b)    a over b, rounded up
  peek(a, i)    element i of an array argument, 0 where it has none
  sized(name, ...), work(spec)   the bytes that a size query of the library answers

A length below 1 asks for nothing: the library refuses it.
"""
import re

# What later calls need to know of a state or specification, from the arguments of the call that built it.
#   n points of a transform; taps as SetTaps takes them; delay line; up, down factors of the rate; ahead: samples that
#   are read beyond; low, high delay lines of wavelets; margin of resamplers, rows and row of their filters
FACTS = (
    (r"zorsFFTInit", {"n": "1 << order"}),
    (r"zors(DFT|DFTOutOrd|DCTFwd|DCTInv|Hilbert)Init", {"n": "len"}),
    (r"zorsFIRMRStreamInit", {"taps": "tapsLen", "delay": "tapsLen", "up": "upFactor", "down": "downFactor",
                              "ahead": "ceil(tapsLen + downPhase, upFactor) + 1"}),
    (r"zorsFIRStreamInit", {"taps": "tapsLen", "delay": "tapsLen", "ahead": "tapsLen - 1"}),
    (r"zorsFIRMR_?Init", {"taps": "tapsLen", "delay": "ceil(tapsLen, upFactor)", "up": "upFactor", "down": "downFactor"}),
    (r"zorsFIRSRInit", {"taps": "tapsLen", "delay": "tapsLen - 1"}),
    (r"zorsFIRLMSMRInit", {"taps": "tapsLen", "delay": "tapsLen * dlyStep + updateDelay"}),
    (r"zorsFIR(LMS)?Init", {"taps": "tapsLen", "delay": "tapsLen"}),
    (r"zorsIIRInit\w*DF1", {"taps": "6 * numBq", "delay": "4 * numBq"}),
    (r"zorsIIRInit\w*BiQuad", {"taps": "6 * numBq", "delay": "2 * numBq"}),
    (r"zorsIIRInit", {"taps": "2 * order + 2", "delay": "order"}),
    (r"zorsFIRSparseInit", {"delay": "last(nzTapPos, nzTapsLen)"}),
    (r"zorsIIRSparseInit", {"delay": "last(nzTapPos, nzTapsLen1) + last(nzTapPos, nzTapsLen1 + nzTapsLen2)"}),
    (r"zorsWTFwdInit", {"low": "lenLow - 1 + offsLow", "high": "lenHigh - 1 + offsHigh"}),
    (r"zorsWTInvInit", {"low": "(lenLow + offsLow + 1) // 2", "high": "(lenHigh + offsHigh + 1) // 2"}),
    (r"zorsResamplePolyphaseInit", {"margin": "ceil(int(window / 2 * nStep) + 1, nStep)"}),
    (r"zorsResamplePolyphaseFixedInit", {"margin": "ceil(len, 4) * 2", "row": "ceil(len, 4) * 4 + 4",
                                        "ratio": "outRate / inRate"}),
)

ONE = "1"
# Results and running values of one element, wherever they are pointers.
SINGLE = set("""size specSize initSize workSize bufSize lenOut height dlyIndex phase seed time outLen dstBitLen mean stdDev
    sum norm dotProd min max minIndex maxIndex index maxAbs minAbs nearest count result order tapsFactor dlyPoint
    minPathError minState point""".split())

# (functions, {argument: elements}); the first that knows the argument holds.
RULES = (
    # Memory, bits and three-byte elements
    (r"zorsSwapBytes_24u", {"src": "3 * len", "dst": "3 * len", "srcDst": "3 * len"}),
    (r"zorsConvert_24[su]", {"src": "3 * len"}),
    (r"zorsConvert_\w+24[su]", {"dst": "3 * len"}),
    (r"zorsCopy(LE|BE)?_1u", {"src": "ceil((srcBitOffset & 7) + len, 8)", "dst": "ceil((dstBitOffset & 7) + len, 8)"}),
    (r"zorsPackBits", {"dst": "ceil((dstBitOffset & 7) + bits(widths, len), 8)"}),
    (r"zorsSet_64\wc", {"val": ONE}),
    (r"zorsJoinScaled_32f24s", {"src": "chanLen", "dst": "3 * nChannels * chanLen"}),
    (r"zorsJoinScaled", {"src": "chanLen", "dst": "nChannels * chanLen"}),
    (r"zorsSplitScaled_24s", {"src": "3 * nChannels * chanLen", "dst": "chanLen"}),
    (r"zorsSplitScaled", {"src": "nChannels * chanLen", "dst": "chanLen"}),
    (r"zorsSortRadixIndex", {"src": "spaced(src, srcStrideBytes, len)"}),
    (r"zorsSumWindow", {"src": "len + maskSize - 1"}),
    (r"zorsFindNearest", {"table": "tableLen"}),
    # Transforms and packed spectra
    (r"zors(FFT|DFT)Fwd_RToCCS", {"src": "spec.n", "dst": "ccs(spec.n)", "srcDst": "ccs(spec.n)"}),
    (r"zors(FFT|DFT)Inv_CCSToR", {"src": "ccs(spec.n)", "dst": "spec.n", "srcDst": "ccs(spec.n)"}),
    (r"zors(FFT|DFT|DFTOutOrd|DCT)(Fwd|Inv)_|zorsHilbert_", {"buffer": "work(spec)", None: "spec.n"}),
    (r"zorsConjCcs_\w+_I$", {"srcDst": "len"}),
    (r"zorsConjCcs_", {"src": "ccs(len)"}),
    # Filters
    (r"zorsFIRLMSMR(GetDlyVal|One)", {"dst": ONE}),
    (r"zorsFIRLMSOne", {"dst": ONE, "taps": "tapsLen", "dly": "2 * tapsLen"}),
    (r"zors(FIR|IIR)\w*(Set|Get)Taps", {"taps": "state.taps"}),
    (r"zors(FIR|IIR)\w*(Set|Get)DlyLine", {"dly": "state.delay"}),
    (r"zorsFIRSparseInit", {
        "dly": "last(nzTapPos, nzTapsLen)",
        "buffer": "sized('zorsFIRSparseGetStateSize_32f', nzTapsLen, last(nzTapPos, nzTapsLen))"}),
    (r"zorsFIR(Sparse|LMS)\w*_", {"nzTaps": "nzTapsLen", "nzTapPos": "nzTapsLen", "src": "len", "ref": "len", "dst": "len"}),
    (r"zorsFIROne\w*_Direct", {"dst": ONE, "srcDst": ONE, "taps": "tapsLen", "dly": "2 * tapsLen"}),
    (r"zorsFIROne", {"dst": ONE, "srcDst": ONE}),
    (r"zorsFIRMR\w*_Direct", {"src": "numIters * downFactor", "dst": "numIters * upFactor",
                              "srcDst": "numIters * max(upFactor, downFactor)", "taps": "tapsLen",
                              "dly": "ceil(tapsLen, upFactor)"}),
    (r"zorsFIR\w*_Direct", {"src": "len", "dst": "len", "srcDst": "len", "taps": "tapsLen", "dly": "2 * tapsLen"}),
    (r"zorsFIR[SM]R_[136]", {"src": "numIters * spec.down", "dst": "numIters * spec.up", "dlySrc": "spec.delay",
                             "dlyDst": "spec.delay", "buffer": "spec.work"}),
    (r"zorsFIRGen", {"taps": "tapsLen"}),
    (r"zorsFIRMR\w*Init", {"taps": "tapsLen", "dly": "ceil(tapsLen, upFactor)"}),
    (r"zorsFIRLMSMRInit", {"taps": "tapsLen", "dly": "tapsLen * dlyStep + updateDelay"}),
    (r"zorsFIR\w*Init", {"taps": "tapsLen", "dly": "tapsLen"}),
    (r"zorsFIR(\d+\w*?)?_\d", {"src": "len * state.down + state.ahead", "dst": "len * state.up",
                          "srcDst": "max(len * state.down + state.ahead, len * state.up)"}),
    (r"zorsIIRSparseInit", {"nzTaps": "nzTapsLen1 + nzTapsLen2", "nzTapPos": "nzTapsLen1 + nzTapsLen2"}),
    (r"zorsIIRSparseInit", {
        "dly": "last(nzTapPos, nzTapsLen1) + last(nzTapPos, nzTapsLen1 + nzTapsLen2)",
        "buffer": "sized('zorsIIRSparseGetStateSize_32f', nzTapsLen1, nzTapsLen2, last(nzTapPos, nzTapsLen1), "
                  "last(nzTapPos, nzTapsLen1 + nzTapsLen2))"}),
    (r"zorsIIRInit\w*DF1", {"taps": "6 * numBq", "dly": "4 * numBq"}),
    (r"zorsIIR(Init\w*|One)_?\w*BiQuad|zorsIIR_BiQuadDirect", {"taps": "6 * numBq", "dly": "2 * numBq"}),
    (r"zorsIIR(Init|(One)?_Direct)", {"taps": "2 * order + 2", "dly": "order"}),
    (r"zorsIIRGen", {"taps": "2 * order + 2"}),
    (r"zorsIIROne", {"dst": ONE, "srcDst": ONE}),
    (r"zorsIIR\w*_I?P", {None: "len", "scaleFactors": "numChannels"}),
    (r"zorsUpdate(Linear|Power)", {"srcDst": ONE}),
    # Resampling, correlation, wavelets
    (r"zorsSampleUp", {"src": "srcLen", "dst": "srcLen * factor", "dstLen": ONE}),
    (r"zorsSampleDown", {"src": "srcLen", "dst": "ceil(srcLen, factor)", "dstLen": ONE}),
    (r"zorsResamplePolyphase_", {"src": "reach(time, len, stretched(state.margin, factor))",
                                 "dst": "outputs(len, factor)"}),
    (r"zorsResamplePolyphaseFixed_", {"src": "reach(time, len, state.margin)", "dst": "outputs(len, state.ratio)"}),
    (r"zorsResamplePolyphase[GS]etFixedFilter", {"filter": "(height - 1) * step + min(state.row, step)"}),
    (r"zorsAutoCorrNorm_(\w+)", {
        "buffer": r"sized('zorsAutoCorrNormGetBufferSize', srcLen, dstLen, TYPE['\1'], algType)"}),
    (r"zorsCrossCorrNorm_(\w+)", {
        "buffer": r"sized('zorsCrossCorrNormGetBufferSize', len1, len2, dstLen, lowLag, TYPE['\1'], algType)"}),
    (r"zorsConvolve_(\w+)", {"buffer": r"sized('zorsConvolveGetBufferSize', len1, len2, TYPE['\1'], algType)"}),
    (r"zorsConv(olve)?_", {"dst": "len1 + len2 - 1"}),
    (r"zors(Auto|Cross)Corr|zorsConvBiased", {"dst": "dstLen"}),
    (r"zorsConvCyclic(\d)x", {None: r"\1"}),
    (r"zors(AutoCorr|CrossCorr|Conv(?!ert))", {"src": "srcLen", "src1": "len1", "src2": "len2"}),
    (r"zorsWTHaarFwd", {"dstLow": "ceil(len, 2)", "dstHigh": "len // 2"}),
    (r"zorsWTHaarInv", {"srcLow": "ceil(len, 2)", "srcHigh": "len // 2"}),
    (r"zorsWT\w+Init", {"tapsLow": "lenLow", "tapsHigh": "lenHigh"}),
    (r"zorsWT\w+DlyLine", {"dlyLow": "state.low", "dlyHigh": "state.high"}),
    (r"zorsWTFwd_", {"src": "2 * dstLen", "dstLow": "dstLen", "dstHigh": "dstLen"}),
    (r"zorsWTInv_", {"srcLow": "srcLen", "srcHigh": "srcLen", "dst": "2 * srcLen"}),
    # Detection
    (r"zorsGetVarPoint", {"labels": "16", "variance": "8"}),
    (r"zorsBuildSymblTable", {"variance": "16", "table": "16 if stateCount == 16 else 32"}),
    (r"zorsCalcStates", {"pathError": "stateCount", "nextState": "16 * stateCount", "table": "32",
                         "newPathError": "above(nextState, 16 * stateCount)",
                         "survivors": "beyond(survivorOffset, above(nextState, 16 * stateCount))"}),
    (r"zorsUpdatePathMetrics", {"branchError": "stateCount", "pathError": "stateCount"}),
    (r"zorsGoertzTwo", {"val": "2", "rFreq": "2", "rFreqQ15": "2"}),
    (r"zorsGoertz", {"val": ONE}),
)

# Contents that the library trusts: (functions, condition, what to say).
TRUSTED = (
    (r"zorsFIR(One)?(\d+\w+)?_Direct", "0 <= peek(dlyIndex, 0) < max(tapsLen, 1)", "dlyIndex must be in 0 .. tapsLen - 1"),
    (r"zorsResamplePolyphase(Fixed)?_", "settled(time)", "time must be a finite number of at most 2^31"),
    (r"zorsSortRadixIndex", "srcStrideBytes >= 0", "a stride below 0 reads before the array"),
    (r"zorsResamplePolyphase(Fixed)?Init", "not alpha > 700", "alpha must be at most 700: its series ends in no number beyond"),
    (r"zorsCalcStates", "survivorOffset >= 0", "an offset below 0 writes before the array"),
    (r"zors(Zero|Move)_", "len * itemsize(dst) < 1 << 31", "the byte count must be below 2^31"),
)


def facts(function):
    """{fact: expression} of the state or specification that a function builds."""
    return next((found for pattern, found in FACTS if re.match(pattern, function)), {})


def room(function, argument, scalars):
    """The elements that a pointer argument must have, as an expression; None where no rule is known."""
    for pattern, sizes in RULES:
        match = re.match(pattern, function)
        if match and (argument in sizes or (None in sizes and argument not in SINGLE and argument != "buffer")):
            return match.expand(sizes.get(argument, sizes.get(None)))
    if argument in SINGLE:
        return ONE
    return next((name for name in ("len", "tapsLen") if name in scalars), None)


def trusted(function):
    return [(condition, text) for pattern, condition, text in TRUSTED if re.match(pattern, function)]
