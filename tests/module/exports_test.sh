#!/bin/sh
# usage: exports_test.sh MODULE HOST LIST EVALUATIONS
# Fails unless MODULE exports exactly the names of LIST and the creators of EVALUATIONS, and asks for nothing but what HOST exports
# as the platform (KEP...) and the language's own libraries offer: versioned names, and in a
# sanitized build whatever the sanitizers define.
set -eu
export LC_ALL=C
module=$1 host=$2 list=$3 evaluations=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

nm -D --defined-only -C "$module" | cut -d' ' -f3- | sort -u >"$work/exported"
creator=CreateTIEKEPIMfgParameterEvaluation
awk -v creator=$creator '!/^#/ { print creator $2 }' "$evaluations" >"$work/creators"
sort -u "$list" "$work/creators" >"$work/expected"
diff "$work/expected" "$work/exported" || {
  echo "the exports differ from $list and $evaluations (< expected, > exported)" >&2
  exit 1
}

defined() { nm -D --defined-only "$1" | awk '{ sub(/@.*/, "", $3); print $3 }'; }

for library in $(ldd "$module" | awk '/lib(asan|ubsan)/ { print $3 }'); do
  defined "$library"
done | sort -u >"$work/sanitizers"
nm -D --undefined-only "$module" | awk '$1 == "U" { print $2 }' |
  grep -Ev '@(GLIBC|GLIBCXX|CXXABI|GCC)_' | sort -u | comm -23 - "$work/sanitizers" >"$work/asked"
defined "$host" | sort -u >"$work/offered"
comm -23 "$work/asked" "$work/offered" >"$work/missing"
c++filt <"$work/asked" | grep -Ev '^((vtable|typeinfo|typeinfo name) for )?KEP' \
  >"$work/foreign" || true
for problem in missing foreign; do
  if [ -s "$work/$problem" ]; then
    echo "$problem:" >&2
    c++filt <"$work/$problem" >&2
    exit 1
  fi
done
test -s "$work/asked"
