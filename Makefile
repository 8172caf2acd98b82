# The short road. `make demo` and `make test` work on a fresh Debian machine: both install what they need first.
PACKAGES = g++ clang cmake ninja-build make pkg-config libgtest-dev libbenchmark-dev libmpfr-dev \
           libsndfile1-dev gnuplot-nox libfftw3-dev libvolk2-dev libliquid-dev libsleef-dev libopenblas-dev libeigen3-dev \
           clang-format clang-tidy
IN ?= examples/data/speech.wav
OUT ?= demo-out.wav
JOBS ?= $(shell nproc)
build = cmake --preset $(1) >/dev/null && cmake --build --preset $(1) -j $(JOBS)

.PHONY: help setup demo find pictures test test-gcc test-clang sanitize tsan bench accuracy format lint install clean
help:
	@sed -n 's/^## //p' Makefile

## make setup      install the Debian packages that are missing
setup:
	@missing=$$(for p in $(PACKAGES); do dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'ok installed' || echo $$p; done); \
	if [ -n "$$missing" ]; then \
	  echo "installing: $$missing"; sudo=$$([ "$$(id -u)" = 0 ] || echo sudo); \
	  $$sudo apt-get update -qq && DEBIAN_FRONTEND=noninteractive $$sudo apt-get install -y -qq --no-install-recommends $$missing; \
	fi

## make demo       filter a recording to the telephone band: make demo IN=file.wav OUT=file.wav
demo: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target telephone_band | tail -1
	@./build/gcc-release/examples/telephone_band "$(IN)" "$(OUT)"

## make find       look for a sound in a recording: make find IN=file.wav SOUND=file.wav; without SOUND for a piece of it
find: setup
	@cmake --preset gcc-release >/dev/null && cmake --build build/gcc-release -j $(JOBS) --target find_sound | tail -1
	@./build/gcc-release/examples/find_sound "$(IN)" $(SOUND)

## make pictures   draw the windows and their spectra into docs/
pictures: setup
	@cmake --preset gcc-release >/dev/null && cmake --build build/gcc-release -j $(JOBS) --target window_pictures | tail -1
	@./build/gcc-release/examples/window_pictures docs

## make test       build with g++ and clang++, run all tests with each
test: setup test-gcc test-clang
test-gcc:
	$(call build,gcc-release)
	ctest --preset gcc-release -j $(JOBS)
test-clang:
	$(call build,clang-release)
	ctest --preset clang-release -j $(JOBS)

## make sanitize   the tests under AddressSanitizer and UndefinedBehaviorSanitizer
sanitize: setup
	$(call build,gcc-sanitize)
	ctest --preset gcc-sanitize -j $(JOBS)

## make tsan       the tests of threads under ThreadSanitizer
tsan: setup
	$(call build,clang-tsan)
	./build/clang-tsan/tests/transforms_tests --gtest_filter='*Thread*'

## make bench      speeds beside peers and bounds; BENCH=regex picks rows
bench: setup
	@$(call build,gcc-release) | tail -1
	@for program in build/gcc-release/bench/*_bench; do $$program $(if $(BENCH),--benchmark_filter='$(BENCH)'); done

## make accuracy   errors of the transcendental functions and of the transforms, as tables (minutes)
accuracy: setup
	@cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target accuracy | tail -1
	@for program in build/gcc-release/accuracy/*_accuracy; do $$program; done

## make format     clang-format over all sources
format:
	clang-format -i $$(git ls-files '*.cpp' '*.h' '*.c')

## make lint       clang-tidy over the library
lint: setup
	cmake --preset clang-release >/dev/null
	clang-tidy -p build/clang-release --quiet $$(git ls-files 'src/*.cpp')

## make install    install library and headers below PREFIX (default /usr/local)
PREFIX ?= /usr/local
install:
	cmake --preset gcc-release >/dev/null && cmake --build --preset gcc-release -j $(JOBS) --target zorsl9 zorcore
	cmake --install build/gcc-release --prefix $(PREFIX)

## make clean      remove the build folder
clean:
	rm -rf build
