# The Debian packages that the project needs, and installing those that are missing.

build_packages=(g++ cmake ninja-build ccache qt6-base-dev libgl-dev libinsighttoolkit5-dev libgdcm-dev libgdcm-tools
  libdcmtk-dev libopenjp2-7-dev libcharls-dev
  libeigen3-dev libstb-dev libcli11-dev libgtest-dev googletest libbenchmark-dev zlib1g-dev nlohmann-json3-dev fonts-dejavu-core)
sample_packages=(mricron-data)
test_packages=(python3-pydicom) # real DICOM files
windows_packages=(g++-mingw-w64-x86-64-posix)

install_missing() { # PACKAGE...
  local package missing=() as_root=()
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  printf 'Installing Debian packages: %s\n' "${missing[*]}"
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  "${as_root[@]}" apt-get update -qq &&
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    { printf 'These packages could not be installed: %s\nInstall them and try again.\n' "${missing[*]}" >&2; return 1; }
}
