# Shortcuts. What they do is in scripts/, CMakePresets.json and CMakeLists.txt.

JOBS := $(shell nproc)
NINJA_FLAGS ?=
BENCH_FLAGS ?=

.PHONY: run test check-all bench fuzz faults load coverage mutants package dist pictures format clean setup programs release

# Opens the program; without a screen, writes a sample page of every paper kind instead.
run: programs
	@scripts/run build/release/bin

test: release
	@ctest --preset release -j $(JOBS)

# Everything that can be checked, as root. Takes most of an hour.
check-all:
	@.ci/run all

programs: setup
	@cmake --preset release > /dev/null
	@cmake --build --preset programs -- $(NINJA_FLAGS)

release: setup
	@cmake --preset release > /dev/null
	@cmake --build --preset release -- $(NINJA_FLAGS)

# Prints the table of figures, and writes it to build/bench.md.
bench:
	@scripts/setup
	@scripts/setup bench
	@cmake --preset bench > /dev/null
	@cmake --build --preset bench -- $(NINJA_FLAGS)
	@xvfb-run -a build/bench/bin/linealis_bench --table=build/bench.md $(BENCH_FLAGS)

# Looks for input that breaks something, MINUTES for each part of the program that reads any.
MINUTES ?= 1
fuzz:
	@scripts/setup
	@scripts/setup fuzz
	@scripts/fuzz $(MINUTES)

# Kills the programs, takes their disk and memory away, and looks at what they leave behind.
faults: release
	@scripts/setup faults
	@cmake --build --preset release --target linealis_faults -- --quiet

# Ten thousand pages in one process and in one window, a hundred files handed over while a page is made.
load: release
	@LINEALIS_LOAD_PAGES=10000 LINEALIS_LOAD_HAND_OVERS=100 ctest --preset release -R 'ManyPages|hand_overs_while' --timeout 3600

# How much of the program the tests run.
coverage:
	@scripts/setup
	@scripts/setup coverage
	@scripts/coverage

# Plants faults in the program, one at a time, and tells which the tests do not catch. Takes an hour.
mutants: setup
	@scripts/mutants

# Makes the Debian packages, in build/packages.
package: release
	@scripts/setup packages
	@scripts/package build/release build/packages

# Writes the source archive, build/linealis-VERSION.tar.gz, from the last commit.
dist:
	@scripts/dist build

# The pictures of README, manual and gallery, from the program's own pages, and of its windows.
pictures: release
	@scripts/setup pictures
	@scripts/readme-pictures build/release/bin/linealis-cli docs/images
	@scripts/manual-pictures build/release/bin/linealis-cli docs/manual/images
	@scripts/gallery-pictures build/release/bin/linealis-cli resources/gallery
	@scripts/icons resources/icons
	@scripts/screenshots build/release/bin/linealis_screenshots build/screenshots

format:
	@scripts/setup ci
	@git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' | xargs -0 -r clang-format -i

clean:
	@rm -rf build

setup:
	@scripts/setup
