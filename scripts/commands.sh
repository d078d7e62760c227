# shellcheck shell=bash
# Sourced by the commands in the root folder and by scripts. Defines the Debian packages that they need,
# and functions that install packages and build.

program_packages='g++ cmake ninja-build nlohmann-json3-dev binutils-mingw-w64-x86-64'
test_packages='libgtest-dev clang libclang-rt-14-dev'
windows_packages='g++-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-win32 googletest wine wine64 wine64-preloader xvfb xauth locales imagemagick zip'
bench_packages='libbenchmark-dev valgrind acl time'
coverage_packages='gcovr'
static_packages='clang-tidy cppcheck'
font_packages='fonts-wine fonts-wqy-microhei'  # for pictures

# Prints the packages among its arguments that are not installed.
missing_packages() {
  local package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
      printf '%s ' "$package"
  done
}

# Installs the packages among its arguments that are missing. If that fails, prints an error and returns
# 2.
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
  # A new system has no package list yet; on an old one it may be out of date.
  # shellcheck disable=SC2086
  if ! install_now $missing && ! { apt-get update -qq >/dev/null 2>&1 && install_now $missing; }; then
    printf 'apt-get could not install: %s\n' "${missing% }" >&2
    return 2
  fi
}

install_now() {
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" >/dev/null 2>&1
}

# Builds targets of a preset, or all targets if none is given. Prints a message only if there is
# something to build, and the output of the build if it fails.
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

# Reads the output of ninja. Prints one message if something is built; on a terminal, shows a counter.
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
