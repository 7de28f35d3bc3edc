# The usual commands. Everything they need is installed by tools/setup on the first use.
PREFIX ?= /usr/local
DESTDIR ?=
JOBS ?= 2
# How many entries the stores of `make bench` hold, one size after the other.
ENTRIES ?= 20000 1000000
# How long `make fuzz` tries each target, or, when given, how many times.
SECONDS ?= 60
EXECUTIONS ?=

launcher := $(if $(shell command -v ccache),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
configure = cmake --log-level=WARNING --preset $(1) $(launcher)
build = cmake --build --preset $(1) -j $(JOBS)

.PHONY: help run test bench faults fuzz install package asan tsan valgrind tidy format clean setup

help:
	@echo "make run      build and open the window on made-up records; without a display, a tour and pictures"
	@echo "make test     build everything and run all tests"
	@echo "make bench    build with optimisation and measure, beside SQLite doing the same; build/bench.md"
	@echo "make faults   kills, power losses, full disks, damaged files, hostile neighbours, all of them"
	@echo "make fuzz     build the fuzz targets and run each for SECONDS ($(SECONDS)) seconds"
	@echo "make install  install below PREFIX ($(PREFIX)), staged in DESTDIR when given"
	@echo "make package  build a Debian package, build/release/hourwright_*.deb"
	@echo "make asan     all tests with the address and undefined-behaviour sanitizers"
	@echo "make tsan     the engine's tests, those with threads among them, with the thread sanitizer"
	@echo "make valgrind every command of hwctl's case files under valgrind"
	@echo "make tidy     clang-tidy over every source"
	@echo "make format   clang-format over every source"
	@echo "make clean    remove the build folder"

setup:
	@tools/setup

run: setup
	$(call configure,release)
	$(call build,release) --target hwctl hourwright hourwright_screens
	@tools/tour build/release/bin

test: setup
	$(call configure,dev)
	$(call build,dev)
	ctest --preset dev -j $(JOBS)

bench: setup
	$(call configure,release)
	$(call build,release) --target benchmarks
	PYTHONDONTWRITEBYTECODE=1 python3 bench/bench.py build/release --sizes "$(ENTRIES)" --out build/bench.md

faults: setup
	$(call configure,release)
	$(call build,release) --target hwctl hourwright
	PYTHONDONTWRITEBYTECODE=1 python3 tests/faults/faults.py --long --jobs $(JOBS) \
	  --hwctl build/release/bin/hwctl --hourwright build/release/bin/hourwright

fuzz:
	@tools/setup clang libclang-rt-14-dev
	$(call configure,fuzz)
	$(call build,fuzz) --target fuzz_targets
	EXECUTIONS=$(EXECUTIONS) fuzz/run build/fuzz/bin $(SECONDS)

install: setup
	$(call configure,release)
	$(call build,release) --target hwctl pages hourwright
	umask 022 && DESTDIR="$(DESTDIR)" cmake --install build/release --prefix "$(PREFIX)"

package:
	@tools/setup dpkg-dev
	$(call configure,release)
	$(call build,release) --target hwctl pages hourwright
	umask 022 && cd build/release && SOURCE_DATE_EPOCH=$${SOURCE_DATE_EPOCH:-$$(git log -1 --format=%ct || date +%s)} cpack -G DEB

asan: setup
	$(call configure,asan)
	$(call build,asan)
	ctest --preset asan -j $(JOBS)

tsan: setup
	$(call configure,tsan)
	$(call build,tsan)
	ctest --preset tsan -j $(JOBS)

valgrind:
	@tools/setup valgrind
	$(call configure,release)
	$(call build,release) --target hwctl
	PYTHONDONTWRITEBYTECODE=1 python3 tests/memcheck/memcheck.py --hwctl build/release/bin/hwctl --jobs $(JOBS)

tidy:
	@tools/setup clang-tidy
	$(call configure,tidy)
	$(call build,tidy)

format:
	@tools/setup clang-format
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	rm -rf build
