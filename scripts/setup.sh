# Shared by ./run and ./test: find out what is missing on this machine, install it from Debian, configure a preset.
# Sourced, not run. Everything goes to the terminal, so that nobody wonders what is being installed and why.

# What a package is needed for, one row each: name, then the file that shows it is there, then the reason.
build_packages='
g++                     /usr/bin/g++                                        the compiler
cmake                   /usr/bin/cmake                                      the build
ninja-build             /usr/bin/ninja                                      the build
qt6-base-dev            /usr/include/x86_64-linux-gnu/qt6/QtWidgets/QWidget the editor
qt6-svg-dev             /usr/include/x86_64-linux-gnu/qt6/QtSvg/QSvgRenderer the picture that greets
libgl-dev               /usr/include/GL/gl.h                                the editor (Qt asks for it)
libxcb1-dev             /usr/include/xcb/xcb.h                              the editor, to bring its window to the front
libcli11-dev            /usr/include/CLI/CLI.hpp                            the command line
nlohmann-json3-dev      /usr/include/nlohmann/json.hpp                      the command line
fonts-dejavu-core       /usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf the editor font
'
test_packages='
libgtest-dev            /usr/include/gtest/gtest.h                          the tests
librapidcheck-dev       /usr/include/rapidcheck.h                           the tests of properties
'
# The tests run without these, only less thoroughly.
optional_test_packages='
fpc-source              /usr/share/fpcsrc                                   real Pascal code as test input
desktop-file-utils      /usr/bin/desktop-file-validate                      the test of the desktop entry
appstream               /usr/bin/appstreamcli                               the test of the metainfo
shared-mime-info        /usr/bin/update-mime-database                       the test of the types of files
man-db                  /usr/bin/man                                        the test of the manual pages
groff                   /usr/bin/groff                                      the test of the manual pages
python3                 /usr/bin/python3                                    the session that is driven on a display
xvfb                    /usr/bin/Xvfb                                       the display of that session
xdotool                 /usr/bin/xdotool                                    its keys and clicks
openbox                 /usr/bin/openbox                                    its window manager
'

say() { printf '%s\n' "$*" >&2; }

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    say "This needs root, and there is no sudo: $*"
    return 1
  fi
}

# The names of the packages in the table $1 that are missing; a line about each on the terminal.
missing_packages() {
  local name file reason
  while read -r name file reason; do
    [ -n "$name" ] || continue
    # Multiarch paths are written for x86_64; any other machine's differ in that one component.
    if ! compgen -G "${file/x86_64-linux-gnu/*}" >/dev/null; then
      say "  $name: $reason"
      printf '%s ' "$name"
    fi
  done <<<"$1"
}

install_packages() { # install_packages TABLE
  local names
  names=$(missing_packages "$1")
  [ -n "$names" ] || return 0
  say "These Debian packages are missing and will now be installed: $names"
  if [ -z "${apt_updated:-}" ]; then
    as_root apt-get update -qq || return 1
    apt_updated=1
  fi
  # shellcheck disable=SC2086 # a list of names
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $names >&2
}

configure() { # configure PRESET
  local log="build/$1.configure.log"
  mkdir -p build
  if ! cmake --preset "$1" >"$log" 2>&1; then
    cat "$log" >&2
    return 1
  fi
}

build() { # build PRESET TARGET...
  local preset=$1
  shift
  cmake --build "build/$preset" --target "$@" >&2
}
