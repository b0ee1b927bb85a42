#!/usr/bin/env bash
# The README of each folder under src/ and kit/ names every file of the folder and no other.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
status=0
for folder in src/*/ kit/*/; do
    files=$(cd "$folder" && ls -- *.h *.cpp *.json 2>/dev/null | sed 's/\.[a-z]*$//' | sort -u)
    named=$(grep -E '^\| *`' "$folder/README.md" | cut -d'|' -f2 | grep -oE '`[^`]+`' |
        tr -d '`' | sed 's/\.[a-z]*$//' | sort -u)
    if [ -z "$files" ] || ! diff --label "${folder}README.md" --label "$folder" -U0 \
        <(echo "$named") <(echo "$files"); then
        status=1
    fi
done
exit $status
