# Shared by the steps that build what the Windows program stands on; to be sourced.
#
# What is built here depends on a Debian source package, the architecture and the options, so it
# lies in the user's cache under a name made of all three and is built once. It is put there by a
# rename at the very end: an aborted build leaves nothing that could be taken for a finished one.

cache="${XDG_CACHE_HOME:-$HOME/.cache}/orvane"
project="$(dirname "$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")")"

fail() {
  echo "$*" >&2
  exit 1
}

# windows_compiler <arch>: the prefix of the compiler's programs.
windows_compiler() {
  case "$1" in
    x86_64 | i686) echo "$1-w64-mingw32" ;;
    *) fail "Unknown architecture '$1' (x86_64, i686)." ;;
  esac
}

# installed_version <package>: the Debian version. Qt's host tools and its sources have to match.
installed_version() {
  dpkg-query -W -f='${Version}' "$1"
}

# cached_folder <name> <version> <arch> <options...>: where the finished build belongs. Build files
# trip over a plus sign in a path.
cached_folder() {
  local name="$1" version="${2//[+:~]/-}" arch="$3" hash
  shift 3
  hash=$(printf '%s\n' "$("$(windows_compiler "$arch")-g++-posix" -dumpfullversion)" "$@" | sha256sum)
  echo "$cache/$name-$version-$arch-${hash:0:12}"
}

# put_in_place <finished folder> <target>: the first of two builds at the same time wins.
put_in_place() {
  mv -T "$1" "$2" 2>/dev/null || [[ -d "$2" ]] || fail "$2 cannot be written."
}

# fetch_source <source package> <version> <folder>: unpacks it to <folder>/source. The system's apt
# settings stay as they are: most systems have no source packages switched on.
fetch_source() {
  local package="$1" version="$2" folder="$3" log="$3/fetch.log" options
  mkdir -p "$folder/apt/lists/partial" "$folder/apt/cache/archives/partial" "$folder/source"
  "$project/scripts/packages/debian_sources.sh" 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    >"$folder/apt/sources.list" 2>"$log" || true
  options=(-qq -o "Dir::Etc::SourceList=$folder/apt/sources.list" -o Dir::Etc::SourceParts=-
    -o "Dir::State::Lists=$folder/apt/lists" -o "Dir::Cache=$folder/apt/cache"
    -o APT::Sandbox::User=root)
  if ! (cd "$folder" && apt-get "${options[@]}" update &&
        apt-get "${options[@]}" --download-only source "$package=$version" &&
        rmdir source && dpkg-source --no-check -x ./*.dsc source) >"$log" 2>&1; then
    sed 's/^/  /' "$log" | tail -n 5 >&2
    fail "The source package $package $version cannot be reached, and no build of it is cached in $cache."
  fi
}

# build_folder <target folder>: a folder beside the target, so that the rename stays on one disk.
build_folder() {
  mkdir -p "$cache"
  mktemp -d "$1.building.XXXXXX"
}

# logged <log file> <command...>: quiet unless the command fails.
logged() {
  local log="$1"
  shift
  "$@" >"$log" 2>&1 || { tail -n 40 "$log" >&2; fail "Failed: $*"; }
}
