#!/usr/bin/env bash
# Checks that no layer includes what it must not. The targets' include paths keep it so for our own headers; this also
# sees the libraries' headers and platform switches.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
wrong=0

sources() { find "$@" -name '*.h' -o -name '*.cpp' 2>/dev/null; }

# REASON FORBIDDEN-PATTERN FOLDER...
refuse() {
  local reason=$1 pattern=$2 hits
  shift 2
  local present=()
  for folder in "$@"; do [ -d "$folder" ] && present+=("$folder"); done
  [ ${#present[@]} -gt 0 ] || return 0
  hits=$(sources "${present[@]}" | xargs -r grep -nE "$pattern" 2>/dev/null)
  [ -z "$hits" ] && return 0
  printf '%s:\n%s\n' "$reason" "$hits"
  wrong=1
}

include='^[[:space:]]*#[[:space:]]*include[[:space:]]*'
refuse 'The library includes more than itself, host/ and the platform seam' \
  "$include\"(hostkit|workbench|tests|bench|platform/(qt|export))" frame tools db histo
refuse 'host/ knows only the platform seam' "$include\"(frame|tools|db|histo|hostkit|workbench)/" host
refuse 'hostkit/ names a panel' "$include\"(frame|tools|db|histo|workbench)/" hostkit
refuse 'platform/ knows no layer' "$include\"(frame|tools|db|histo|host|hostkit|workbench)/" platform
refuse 'Qt outside platform/qt and workbench' "$include[<\"]Q[A-Za-z]" frame tools db histo host hostkit examples \
  workbench/document tests/hostkit tests/frame tests/tools tests/db tests/histo tests/support tests/examples
refuse 'ITK or a decoder outside workbench/document' "$include[<\"](itk|gdcm|dcmtk|openjpeg|charls)" frame tools db histo host hostkit platform examples
refuse 'A platform switch above platform/' '_WIN32|__linux__|__APPLE__' frame tools db histo host hostkit workbench examples
refuse 'An include that is not written from the top' "$include\"(\.\./|\./|[^/\"]+\")" \
  frame tools db histo host hostkit platform workbench examples tests bench

# ITK and decoders in the workbench stay in its folder of documents.
hits=$(sources workbench | grep -v '^workbench/document/' | xargs -r grep -nE "$include[<\"](itk|gdcm|dcmtk|openjpeg|charls)")
[ -z "$hits" ] || { printf 'ITK or a decoder outside workbench/document:\n%s\n' "$hits"; wrong=1; }

# The check must be able to fail.
probe=$(mktemp -d) && mkdir "$probe/frame" && printf '#include "hostkit/x.h"\n' >"$probe/frame/probe.h"
sources "$probe/frame" | xargs grep -qE "$include\"hostkit" || { echo 'the check itself is broken'; wrong=1; }
rm -rf "$probe"
exit $wrong
