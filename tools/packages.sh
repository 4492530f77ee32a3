# packages.sh: the Debian packages that building, running and testing need, and how missing ones get there. Sourced.

packages_run=(g++ cmake ninja-build qt6-base-dev qt6-tools-dev fonts-liberation2)
packages_test=("${packages_run[@]}" libgtest-dev clang-format gfortran)

# Installs the packages that are missing, as root or through sudo; with neither it prints what to type, and ends.
install_missing() {
  local missing=()
  for package in "$@"; do
    dpkg-query -W -f '${Status}\n' "$package" 2> /dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then return; fi
  local install="apt-get install -y --no-install-recommends ${missing[*]}"
  if [ "$(id -u)" = 0 ]; then
    echo "Installing ${missing[*]}"
    apt-get update -qq && DEBIAN_FRONTEND=noninteractive $install > /dev/null
  elif command -v sudo > /dev/null && sudo -n true 2> /dev/null; then
    echo "Installing ${missing[*]}"
    sudo apt-get update -qq && sudo DEBIAN_FRONTEND=noninteractive $install > /dev/null
  else
    echo "Packages are missing. Install them with"
    echo "  sudo $install"
    exit 1
  fi
}

# Configures and builds a preset.
build() {
  local log="build/$1.log"
  mkdir -p build
  echo "Building build/$1 (the first time takes a few minutes)"
  if ! { cmake --preset "$1" && cmake --build --preset "$1"; } > "$log" 2>&1; then
    tail -n 40 "$log"
    echo "The build failed; $log has all of it."
    exit 1
  fi
}
