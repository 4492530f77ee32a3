# packages.sh: the Debian packages that building, running and testing need, and how missing ones get there. Sourced.

# Qt's form loader asks for the OpenGL headers, which its package only recommends. A bare machine has no font at all:
# plots are lettered in Liberation Sans; menus and dialogs take the system's sans family, which Debian's font
# configuration finds in DejaVu but not in Liberation. The reader of metafiles measures their text in the base 35 fonts,
# which its package only recommends, and reads none without them.
packages_run=(g++ cmake ninja-build qt6-base-dev qt6-tools-dev qt6-svg-dev libqt6opengl6-dev
  fonts-liberation2 fonts-dejavu-core pandoc)
packages_test=("${packages_run[@]}" libgtest-dev clang-format-16 libwmf-bin fonts-urw-base35
  desktop-file-utils appstream libxml2-utils mandoc parallel)
packages_package=(dpkg-dev file fakeroot git)

# Runs a command as root; fails where that needs a password and nobody is there to type it.
as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; return; fi
  command -v sudo > /dev/null || return 1
  if [ ! -t 0 ]; then sudo -n "$@"; else sudo "$@"; fi
}

# Installs the packages that are missing, as root or through sudo; where that fails it prints what to type, and ends.
install_missing() {
  local missing=() package log=build/packages.log
  for package in "$@"; do
    dpkg-query -W -f '${Status}\n' "$package" 2> /dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then return; fi
  local install=(apt-get install -y --no-install-recommends "${missing[@]}")
  if as_root true 2> /dev/null; then
    echo "Installing ${missing[*]}"
    mkdir -p build
    # An update fails when any one source does, which need not be the one that these packages come from.
    if { as_root apt-get update; as_root env DEBIAN_FRONTEND=noninteractive "${install[@]}"; } > "$log" 2>&1; then
      return
    fi
    tail -n 20 "$log"
    echo "The packages could not be installed; $log has all of it."
  fi
  echo "Packages are missing. Install them with"
  echo "  sudo ${install[*]}"
  exit 1
}

# Configures a preset and builds it, or of it only the targets named:  build PRESET [TARGET...]
build() {
  local preset=$1 log="build/$1.log"
  shift
  mkdir -p build
  echo "Building build/$preset (the first time takes a few minutes)"
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } > "$log" 2>&1; then
    tail -n 40 "$log"
    echo "The build failed; $PWD/$log has all of it."
    exit 1
  fi
}
