# The folders of src/, tests/ and bench/, in the order of the sections of the public header, and into how many runs the
# tests of a folder are cut, so that processors share the long ones.
set(ZORS_FOLDERS memory arithmetic functions conversion thresholds statistics fft dft fir iir design filters resampling
                 correlation windows generators wavelets sorting detection)
set(ZORS_SHARDS_arithmetic 4)
set(ZORS_SHARDS_functions 2)
set(ZORS_SHARDS_fft 2)
set(ZORS_SHARDS_fir 2)
