# What a person does with the project; CMake's presets do the building.

.PHONY: help setup run test test-native build release lint format screenshots fuzz bench
.DEFAULT_GOAL := help

help:
	@echo 'make run          build Tavimor and start it on Wine with sample zones'
	@echo 'make test         every test: native under sanitizers, on Wine, and of what is released'
	@echo 'make test-native  the tests that need g++, CMake and GoogleTest alone'
	@echo 'make build        build/win64/Tavimor.exe'
	@echo 'make release      dist/: Tavimor.exe for Windows 95 and later, its set-up program and its zip'
	@echo 'make screenshots  the pictures in docs/screenshots'
	@echo 'make lint         clang-tidy and the format of every source; tools/lint.sh FILE... of some'
	@echo 'make fuzz         a million made-up inputs to the readers of backups, exports, icons and program files'
	@echo 'make bench        how fast it is, natively and on Wine (WRITE=--write: into docs/performance.md)'
	@echo 'make format       put every source into its format'
	@echo 'make setup        install the Debian packages that all of these need'

setup:
	@tools/setup.sh all

run:
	@tools/setup.sh run
	@tools/build.sh win64 Tavimor
	@sandbox/run.sh

screenshots:
	@tools/setup.sh screenshots
	@tools/build.sh win64 Tavimor
	@sandbox/screenshots.sh

test:
	@tools/setup.sh test
	@tools/test.sh

test-native:
	@tools/test.sh native

build:
	@tools/setup.sh build
	@tools/build.sh win64 Tavimor
	@echo build/win64/Tavimor.exe

release:
	@tools/setup.sh release
	@tools/release.sh
	@cat dist/SHA256SUMS

fuzz:
	@tools/setup.sh fuzz
	@tools/fuzz.sh

bench:
	@tools/setup.sh bench
	@tools/bench.sh $(WRITE)

lint:
	@tools/setup.sh lint
	@tools/lint.sh

format:
	@tools/setup.sh format
	@tools/sources.sh | xargs -d '\n' clang-format -i
