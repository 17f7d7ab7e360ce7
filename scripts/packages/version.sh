# To be sourced: project_version prints the version of everything, which CMakeLists.txt holds. The
# changelog's newest entry has to be about it.
project_version() {
  local version newest
  version=$(sed -n 's/^project(Orvane VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
  newest=$(sed -n '0,/^## /s/^## //p' docs/changelog.md)
  if [[ "$version" != "$newest" ]]; then
    echo "The version is $version, and the changelog's newest entry is about '$newest'." >&2
    return 1
  fi
  echo "$version"
}
