#!/usr/bin/env bash
# What scripts/test counts and repeats of CTest's log: a real CTest runs one test that
# passes, one that fails and one that is not there.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

cat >"$folder/CTestTestfile.cmake" <<'END'
add_test(well echo "all is well")
add_test(broken sh -c "echo what went wrong >&2; exit 1")
add_test(absent "/absent/program")
END
if (cd "$folder" && ctest >/dev/null 2>&1); then echo "ctest passed what fails" >&2; exit 1; fi
log=$folder/Testing/Temporary/LastTest.log

counts=$(awk -f scripts/lib/count_tests.awk "$log")
told=$(awk -v preset=dev -f scripts/lib/failed_tests.awk "$log")
expected=$'dev: broken\n    what went wrong'
[ "$counts" = "1 2" ] || { echo "counts: $counts" >&2; exit 1; }
[ "${told:0:${#expected}}" = "$expected" ] || { echo "told: $told" >&2; exit 1; }
case $told in *"dev: absent"*) ;; *) echo "nothing of the absent test: $told" >&2; exit 1 ;; esac
case $told in *"all is well"*) echo "told of a test that passed: $told" >&2; exit 1 ;; esac
