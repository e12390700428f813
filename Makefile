# The two commands of the README. Each one installs what it needs first.
#   make run   - set up, build and run the main job of the ringbook tool
#   make test  - set up, build with sanitizers and run every test
.PHONY: run test deps build build-asan fuzz bench format clean com-build com-test

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

test: build-asan fuzz com-test
	ctest --preset asan

# The COM server, Korvat_Ringbook.dll, cross-compiled for both Windows
# architectures (i686 is shipped; x86_64 runs the tests under wine64), and
# its black-box tests under Wine (docs/com-server.md).
com-build: deps
	./scripts/mingw-sqlite.sh
	cmake --preset mingw-x86_64
	# The cross linker has been seen to fail once, without a message, on a
	# heavily loaded machine; a second run only redoes what is missing.
	cmake --build --preset mingw-x86_64 || cmake --build --preset mingw-x86_64
	cmake --preset mingw-i686
	cmake --build --preset mingw-i686 || cmake --build --preset mingw-i686

com-test: com-build
	./scripts/com-tests.sh build/mingw-x86_64 build/mingw-i686

bench: build
	./scripts/run-benchmarks.sh build/default/bench

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	rm -rf build
