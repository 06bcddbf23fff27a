#!/usr/bin/env bash
# Reads the sources with cppcheck and clang-tidy: scripts/lint.sh [pattern]. Fails on any finding.
# With a pattern, clang-tidy reads only files whose paths match: scripts/lint.sh src/model
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/setup.sh scripts/packages-checking.txt
scripts/build.sh release  # for what is generated

# Of cppcheck's style rules only performance is of use; clang-tidy knows the others better.
nice cppcheck --quiet -j "$(nproc)" --error-exitcode=1 --std=c++20 --language=c++ \
    --enable=warning,performance,portability --inline-suppr --suppressions-list=.cppcheck-suppressions \
    --library=googletest,posix -I src -I tests src tests bench fuzz tools
nice run-clang-tidy -quiet -p build/release "^$PWD/(?=src|tests|bench|fuzz).*${1:-}.*\.cpp\$" 2>&1 |
    grep -vE '^clang-tidy|^[0-9]+ warnings (generated|treated)|^$' || ((PIPESTATUS[0] == 0))
