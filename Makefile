# A thin face over the presets of CMakePresets.json.

FUZZ_SECONDS ?= 60
BENCH_SECONDS ?= 0.5
LOAD_SECONDS ?= 30

install = sh tools/install-packages.sh
# The release preset configures the benchmarks too, so it needs their library.
preset = cmake --preset $(1) --log-level=WARNING && cmake --build --preset $(1)

.PHONY: run build test bench fuzz tour tidy format clean

run:
	@$(install) run office bench
	@$(call preset,release) --target cotirama
	@if [ -z "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  echo "There is no display to run on; \`make tour\` leaves pictures of every window in build/tour/."; \
	else exec build/bin/cotirama; fi

build:
	@$(install) run office bench
	@$(call preset,release)

# The plain run stands last, so that its summary closes the output.
test:
	@$(install) run office test bench fuzz
	@$(MAKE) --no-print-directory fuzz FUZZ_SECONDS=10
	@$(MAKE) --no-print-directory bench BENCH_SECONDS=0.01 LOAD_SECONDS=1
	@$(call preset,asan)
	@ctest --preset asan -j $$(nproc)
	@$(call preset,dev)
	@ctest --preset dev -j $$(nproc)

bench: build
	@for bench in build/release/cotirama-bench*; do \
	  QT_QPA_PLATFORM=offscreen $$bench --benchmark_min_time=$(BENCH_SECONDS) || exit 1; done
	@sh bench/load.sh build/release $(LOAD_SECONDS)

fuzz:
	@$(install) fuzz
	@$(call preset,fuzz)
	@sh tools/run-fuzz.sh build/fuzz $(FUZZ_SECONDS)

tour: build
	@$(install) tour
	@mkdir -p build/tour
	@xvfb-run -a -s '-screen 0 1920x1200x24' build/release/cotirama-tour build/tour

tidy:
	@$(install) run office tidy
	@$(call preset,tidy)
	@sed -n 's,^ *"file": "\($(CURDIR)/src/.*\.cpp\)".*,\1,p' build/tidy/compile_commands.json | sort -u | \
	  xargs -P $$(nproc) -n 1 clang-tidy -p build/tidy --quiet

format:
	@$(install) format
	@find src tests bench fuzz tools -name '*.h' -o -name '*.cpp' | xargs clang-format -i

clean:
	@rm -rf build
