# Short names for what is done every day. CMakePresets.json holds the builds themselves.

SHELL := /bin/bash
BUILD := cmake --build --preset
TEST := ctest -j $(shell nproc) --preset
SOURCES = $(shell git ls-files '*.h' '*.cpp')

.PHONY: help setup build debug sanitize demo test bench format format-check tidy clean

help:
	@echo "make demo          set up, build, run the examples and take a picture of the workbench"
	@echo "make test          set up, build and run all tests"
	@echo "make build         release build (build/release)"
	@echo "make debug         debug build (build/debug)"
	@echo "make sanitize      build with sanitizers and run all tests (build/sanitize)"
	@echo "make bench         build and run the benchmarks"
	@echo "make format        format the C++ sources"
	@echo "make format-check  fail when a C++ source is not formatted"
	@echo "make tidy          run clang-tidy over the sources"
	@echo "make clean         remove build/ and out/"

setup:
	@scripts/setup-debian.sh

build/%/build.ninja: | setup
	cmake --preset $*

build: setup build/release/build.ninja
	$(BUILD) release

debug: setup build/debug/build.ninja
	$(BUILD) debug

sanitize: setup build/sanitize/build.ninja
	$(BUILD) sanitize
	$(TEST) sanitize

demo: build
	@scripts/demo.sh

test: build
	$(TEST) release

bench: setup build/release/build.ninja
	cmake --preset release -DSTRATIVO_BUILD_BENCHMARKS=ON
	$(BUILD) release
	@export QT_QPA_PLATFORM=offscreen; shopt -s nullglob; status=0; \
	for script in benchmarks/bench_*.py; do \
	  build/release/bin/strativo run "$$script" build/release/benchmarks/modules || status=1; done; \
	for program in build/release/bin/bench_*; do echo "== $$program"; "$$program" || status=1; done; \
	exit $$status

format:
	clang-format -i $(SOURCES)

format-check:
	@clang-format --dry-run -Werror $(SOURCES)

tidy:
	scripts/tidy.sh

clean:
	rm -rf build out
