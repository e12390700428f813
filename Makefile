# The two commands of the README. Each one installs what it needs first.
#   make run   - set up, build and run the main job of the ringbook tool
#   make test  - set up, build with sanitizers and run every test
.PHONY: run test deps build build-asan fuzz bench format clean

FUZZ_SECONDS ?= 20

deps:
	./scripts/install-deps.sh

build: deps
	cmake --preset default
	cmake --build --preset default

run: build
	./scripts/main-job.sh build/default/cli/ringbook

build-asan: deps
	cmake --preset asan
	cmake --build --preset asan

fuzz: deps
	cmake --preset fuzz
	cmake --build --preset fuzz
	./scripts/run-fuzzers.sh build/fuzz/fuzz $(FUZZ_SECONDS)

test: build-asan fuzz
	ctest --preset asan

bench: build
	./scripts/run-benchmarks.sh build/default/bench

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	rm -rf build
