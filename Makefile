# The two commands a person needs: `make run` and `make test`.
BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc)
CMAKE_ARGS ?=

.PHONY: deps configure build run test test-asan bench fuzz format format-check tidy install package clean

deps:
	@scripts/install-deps

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_ARGS)

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@scripts/run-app $(BUILD)

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

test-asan: deps
	cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVANTRELLE_SANITIZE=ON -DVANTRELLE_BENCH=OFF
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	# qemu-user can't map ASan's shadow memory, so the emulated-processor run is left to make test.
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp \
	  ctest --output-on-failure -j $(JOBS) -LE ui -E '^usage_any_x86_64$$'

bench: build
	@ls $(BUILD)/bench/ | grep -E '^bench_' | while read b; do $(BUILD)/bench/$$b; done

# libFuzzer builds for long runs: make fuzz FUZZ_SECONDS=600 [FUZZ_TARGETS="fuzz_claude_hooks ..."].
# Every target runs, seeded with its corpus, even after another one failed; the exit status says
# whether any failed.
FUZZ_SECONDS ?= 60
FUZZ_TARGETS ?=
fuzz:
	@scripts/install-deps fuzz
	CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTRELLE_FUZZ=ON -DVANTRELLE_WITH_QT=OFF -DBUILD_TESTING=OFF -DVANTRELLE_BENCH=OFF
	cmake --build build-fuzz -j $(JOBS)
	@scripts/run-fuzzers build-fuzz $(FUZZ_SECONDS) $(FUZZ_TARGETS)

# Debian 12's clang-format; another version formats some constructs differently.
CLANG_FORMAT ?= clang-format-14
format: deps
	@git ls-files '*.cpp' '*.h' | xargs $(CLANG_FORMAT) -i

format-check: deps
	@git ls-files '*.cpp' '*.h' | xargs $(CLANG_FORMAT) --dry-run --Werror

# The checks of .clang-tidy over core/ (several minutes on two cores).
tidy: configure
	@scripts/install-deps tidy
	@git ls-files 'core/*.cpp' | xargs -P $(JOBS) -n 4 clang-tidy-14 -p $(BUILD) --quiet

# Installs under PREFIX (default /usr/local); DESTDIR stages the files elsewhere, as packagers do.
PREFIX ?= /usr/local
install: build
	DESTDIR=$(DESTDIR) cmake --install $(BUILD) --prefix $(PREFIX)

# A Debian package of the same files: $(BUILD)/vantrelle_<version>_<arch>.deb.
package: build
	cd $(BUILD) && cpack -G DEB

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
