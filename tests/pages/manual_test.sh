#!/usr/bin/env bash
# Every page of the manual is read without a warning and found by its name: manual_test.sh PAGES
set -euo pipefail
pages=$1
for program in man mandoc lexgrog; do
  command -v "$program" >/dev/null || { echo "$program is not installed" >&2; exit 1; }
done

faults=0
fault() {
  echo "$1" >&2
  faults=$((faults + 1))
}

count=0
for page in "$pages"/man[15]/*; do
  count=$((count + 1))
  name=$(basename "${page%.*}")
  said=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
  [ -z "$said" ] || fault "$page: $said"
  lexgrog "$page" | grep -q ": \"$name - " || fault "$page: no NAME"
  # A page without a day is the same whenever it is made; fixed fonts and
  # paragraphs behind headings are pandoc's.
  said=$(mandoc -T lint -W warning "$page" | grep -v 'missing date\|\\f\[C\|PP after S' || true)
  [ -z "$said" ] || fault "$page: $said"
done
[ -e "$pages/man5/morvane-files.5" ] || fault "no morvane-files.5: is pandoc installed?"
[ "$count" -ge 37 ] || fault "$count pages only"
[ "$faults" -eq 0 ]
