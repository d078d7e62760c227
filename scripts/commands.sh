# shellcheck shell=bash
# Sourced by the commands at the root: the Debian packages that each of them needs, their
# installation, and the build.

program_packages='g++ cmake ninja-build nlohmann-json3-dev'
test_packages='libgtest-dev clang libclang-rt-14-dev'
windows_packages='g++-mingw-w64-x86-64-posix googletest wine wine64 wine64-preloader xvfb xauth locales imagemagick zip'
bench_packages='libbenchmark-dev valgrind acl'
coverage_packages='gcovr'
static_packages='clang-tidy cppcheck'
font_packages='fonts-wine fonts-wqy-microhei'  # for pictures

# Prints those of its arguments that are not installed.
missing_packages() {
  local package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
      printf '%s ' "$package"
  done
}

# Installs what is missing of its arguments. When that cannot be done, says so and returns 2.
need_packages() {
  local missing
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" -ne 0 ]; then
    printf 'These packages are needed and not installed. As root, run:\n  apt-get install %s\n' \
      "${missing% }" >&2
    return 2
  fi
  printf 'Installing %s\n' "${missing% }"
  # A fresh system has no list of packages yet, an old one may have one that is out of date.
  # shellcheck disable=SC2086
  if ! install_now $missing && ! { apt-get update -qq >/dev/null 2>&1 && install_now $missing; }; then
    printf 'apt-get could not install: %s\n' "${missing% }" >&2
    return 2
  fi
}

install_now() {
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" >/dev/null 2>&1
}

# Builds targets of a preset; all of them when none is named. Says so only when there is something to
# do, and shows the compiler's words when it fails.
build() {
  local preset=$1 folder=build/$1
  local log=$folder/build.log
  shift
  mkdir -p "$folder"
  if ! cmake --preset "$preset" >"$log" 2>&1; then
    cat "$log" >&2
    return 1
  fi
  ninja -C "$folder" "$@" 2>&1 | tee "$log" | show_progress "$preset"
  if [ "${PIPESTATUS[0]}" -ne 0 ]; then
    cat "$log" >&2
    return 1
  fi
}

# Reads ninja's lines. Says once that something is built; on a terminal it counts.
show_progress() {
  local line said=no
  while IFS= read -r line; do
    case $line in *' Building '* | *' Linking '*) ;; *) continue ;; esac
    if [ -t 1 ]; then
      printf '\r\033[KBuilding %s %s' "$1" "${line%% *}"
    elif [ $said = no ]; then
      printf 'Building %s\n' "$1"
    fi
    said=yes
  done
  if [ $said = yes ] && [ -t 1 ]; then printf '\n'; fi
}
