# The two commands a newcomer needs:
#   make demo   installs what is missing, builds, and runs the brenvale tool's demo on a company file
#   make test   installs what is missing, builds, and runs every test
BUILD ?= build
PACKAGES = cmake ninja-build g++ pkg-config libpugixml-dev libsqlite3-dev libgtest-dev libgmock-dev \
           libbenchmark-dev libcli11-dev libxml2-dev libxml2-utils \
           libcpp-httplib-dev libssl-dev
# clang and its runtime: libFuzzer for `make fuzz`, the sanitizers for CI's second build
PACKAGES += clang libclang-rt-14-dev
SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)
JOBS ?= $(shell nproc 2>/dev/null || echo 2)

.PHONY: all deps configure build test demo bench fuzz clean

all: build

deps:
	@missing=""; for p in $(PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
	  echo "installing:$$missing"; \
	  $(SUDO) apt-get update -qq && DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq $$missing; \
	fi

configure: deps
	@[ -f $(BUILD)/build.ninja ] || cmake -S . -B $(BUILD) -G Ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

demo: build
	$(BUILD)/tools/brenvale/brenvale demo

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x $$b ] && $$b; done

# The fuzz targets, each for FUZZ_SECONDS, in a clang build of their own; what they find beyond the
# seed corpus stays in that build.
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
fuzz: deps
	@[ -f $(FUZZ_BUILD)/build.ninja ] || cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_CXX_COMPILER=clang++ \
	  -DBRENVALE_FUZZ=ON -DBRENVALE_BUILD_TESTS=OFF -DBRENVALE_BUILD_BENCH=OFF
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target fuzz_engine_request fuzz_library_response
	@for target in engine_request library_response; do \
	  found=$(FUZZ_BUILD)/found-$$target; mkdir -p $$found; \
	  echo "fuzzing $$target for $(FUZZ_SECONDS) s"; \
	  $(FUZZ_BUILD)/fuzz/fuzz_$$target -max_total_time=$(FUZZ_SECONDS) -timeout=10 -print_final_stats=1 \
	    $$found fuzz/corpus/$${target%%_*} || exit 1; \
	done

clean:
	rm -rf $(BUILD)
