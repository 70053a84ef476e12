# Shortcuts for the scripts in scripts/, CMakePresets.json and CMakeLists.txt.

JOBS := $(shell nproc)
NINJA_FLAGS ?=
BENCH_FLAGS ?=

.PHONY: run test check-all bench fuzz faults load coverage mutants package dist pictures format clean setup programs release web run-web test-web bench-web package-windows

# Opens the program. Without a display, writes a sample page of every paper kind instead.
run: programs
	@scripts/run build/release/bin

test: release
	@ctest --preset release -j $(JOBS)

# Everything that can be checked, as root. Takes most of an hour.
check-all:
	@.ci/run all

# Builds the page for browsers: the folder build/web/site, for any host of static files, and build/web/linealis.html, which
# opens from disk.
web:
	@scripts/setup
	@scripts/setup web
	@scripts/web

# Serves the page on this machine until Ctrl+C.
run-web: web
	@node web/serve.mjs build/web/site

# Tests the page in browsers, and compares what it makes with linealis-cli for LINEALIS_FORMS (700) random forms.
test-web: web programs
	@cd web && node --test --test-concurrency=2 tests/

# Measures how fast the page is, and how much goes over the wire.
bench-web: web
	@node web/bench.mjs

programs: setup
	@cmake --preset release > /dev/null
	@cmake --build --preset programs -- $(NINJA_FLAGS)

release: setup
	@cmake --preset release > /dev/null
	@cmake --build --preset release -- $(NINJA_FLAGS)

# Runs the benchmarks, prints the table of results and writes it to build/bench.md.
bench:
	@scripts/setup
	@scripts/setup bench
	@cmake --preset bench > /dev/null
	@cmake --build --preset bench -- $(NINJA_FLAGS)
	@xvfb-run -a build/bench/bin/linealis_bench --table=build/bench.md $(BENCH_FLAGS)

# Runs each fuzzer for MINUTES minutes.
MINUTES ?= 1
fuzz:
	@scripts/setup
	@scripts/setup fuzz
	@scripts/fuzz $(MINUTES)

# Injects signals, disk failures and memory failures into the programs, and checks the files that they leave behind.
faults: release
	@scripts/setup faults
	@cmake --build --preset release --target linealis_faults -- --quiet

# Makes ten thousand pages in one process and in one window, and hands over a hundred files while a page is being made.
load: release
	@LINEALIS_LOAD_PAGES=10000 LINEALIS_LOAD_HAND_OVERS=100 ctest --preset release -R 'ManyPages|hand_overs_while' --timeout 3600

# Measures how much of the program the tests cover.
coverage:
	@scripts/setup
	@scripts/setup coverage
	@scripts/coverage

# Injects faults into the program, one at a time, and reports which ones the tests do not catch. Takes an hour.
mutants: setup
	@scripts/mutants

# Makes the packages in build/packages: Debian, RPM, and an archive of linealis-cli for any Linux.
package: release
	@scripts/setup packages
	@scripts/package build/release build/packages

# Makes an archive of linealis-cli for Windows in build/packages.
package-windows:
	@scripts/setup windows
	@scripts/package-windows build/packages

# Writes the source archive of the last commit, build/linealis-VERSION.tar.gz.
dist:
	@scripts/dist build

# Makes the pictures of README, manual, gallery and software centers, the icons, and screenshots of all windows.
pictures: release
	@scripts/setup pictures
	@scripts/readme-pictures build/release/bin/linealis-cli docs/images
	@scripts/manual-pictures build/release/bin/linealis-cli docs/manual/images
	@scripts/gallery-pictures build/release/bin/linealis-cli resources/gallery
	@scripts/store-pictures build/release/bin/linealis build/release/bin/linealis-cli docs/images
	@scripts/icons resources/icons
	@scripts/screenshots build/release/bin/linealis_screenshots build/screenshots

format:
	@scripts/setup ci
	@git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' | xargs -0 -r clang-format -i

clean:
	@rm -rf build

setup:
	@scripts/setup
