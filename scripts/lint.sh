#!/usr/bin/env bash
# Format and static analysis.
#
#   scripts/lint.sh           format of all sources, clang-tidy over those changed since main
#   scripts/lint.sh --all     clang-tidy over all sources
#   scripts/lint.sh --format  format only
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scope="${1:-changed}"
scripts/install-packages.sh build lint
mapfile -t sources < <(git ls-files '*.cpp' '*.h')
clang-format --dry-run -Werror "${sources[@]}"
echo "Format: ${#sources[@]} files are clean."
[[ "$scope" == --format ]] && exit 0

if [[ "$scope" == --all ]]; then
  mapfile -t files < <(git ls-files '*.cpp')
else
  base=$(git merge-base HEAD main 2>/dev/null || git rev-parse HEAD)
  mapfile -t files < <(git diff --name-only --diff-filter=d "$base" -- '*.cpp')
fi
if [[ ${#files[@]} -eq 0 ]]; then
  echo "clang-tidy: nothing to look at."
  exit 0
fi
# Built first, because the analysis needs the headers that the build generates.
scripts/build.sh dev
# Only what this system builds: the other system's adapters have no compile command here.
mapfile -t files < <(printf '%s\n' "${files[@]}" | while read -r file; do
  grep -q "\"$PWD/$file\"" build/dev/compile_commands.json && printf '%s\n' "$file"; done; true)
printf '%s\0' "${files[@]}" | xargs -0 -P "$(nproc)" -n 1 clang-tidy --quiet -p build/dev
echo "clang-tidy: ${#files[@]} files are clean."
