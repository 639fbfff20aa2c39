# The two commands a newcomer needs:
#   make demo   installs what is missing, builds, and runs the brenvale tool's demo on a company file
#   make test   installs what is missing, builds, and runs every test
BUILD ?= build
PACKAGES = cmake ninja-build g++ pkg-config libpugixml-dev libsqlite3-dev libgtest-dev libgmock-dev \
           libbenchmark-dev libcli11-dev libxml2-dev libxml2-utils \
           libcpp-httplib-dev libssl-dev
SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)
JOBS ?= $(shell nproc 2>/dev/null || echo 2)

.PHONY: all deps configure build test demo bench clean

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

clean:
	rm -rf $(BUILD)
