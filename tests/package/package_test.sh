#!/usr/bin/env bash
# Builds the Debian package from an existing build, unpacks it into a scratch root and runs
# the unpacked ardo-cad with the unpacked module and files, as an installed copy runs.
# Arguments: the build folder and the project version.
set -euo pipefail
build=$1
version=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

(cd "$build" && cpack -G DEB -B "$scratch/out" >"$scratch/cpack.log" 2>&1) || { cat "$scratch/cpack.log"; fail "cpack"; }
deb=$(ls "$scratch"/out/ardo_"$version"_*.deb 2>/dev/null | head -n 1)
[ -n "$deb" ] || fail "no ardo_${version}_*.deb made; cpack said: $(cat "$scratch/cpack.log")"

# Runtime dependencies come from dpkg-shlibdeps: the C++ runtime and readline at least.
depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
for library in libc6 libstdc++6 libreadline; do
  [[ $depends == *"$library"* ]] || fail "Depends lacks $library"
done

# The module is no system library: no maintainer script runs ldconfig for it.
dpkg-deb -e "$deb" "$scratch/control"
for script in postinst postrm; do
  [ ! -e "$scratch/control/$script" ] || fail "the package has a $script: $(cat "$scratch/control/$script")"
done

root=$scratch/root
dpkg -x "$deb" "$root"
for file in usr/bin/ardo-cad usr/lib/ardo/program/ardo-cad usr/lib/ardo/program/ardo.arx usr/lib/ardo/program/ardo.msg \
            usr/lib/ardo/program/ardo.dlg usr/lib/ardo/program/Ardo_Sys.cfg usr/lib/ardo/program/DefaultIni/Ardo.ini \
            usr/share/man/man1/ardo-cad.1.gz usr/share/doc/ardo/copyright usr/share/doc/ardo/lisp-reference.md \
            usr/share/applications/ardo-cad.desktop usr/share/icons/hicolor/scalable/apps/ardo-cad.svg; do
  [ -e "$root/$file" ] || fail "the package lacks /$file"
done
[ -L "$root/usr/bin/ardo-cad" ] || fail "/usr/bin/ardo-cad is no link to the program folder"
[ ! -e "$root/usr/lib/ardo/program/Benutzer" ] || fail "the build tree's user folder was packaged"

# --version names the program, the unpacked module and the DXF versions.
out=$("$root/usr/bin/ardo-cad" --version)
echo "$out"
[[ $out == *"ardo-cad $version"* ]] || fail "--version lacks the program version"
[[ $out == *"module: $root/usr/lib/ardo/program/ardo.arx $version"* ]] || fail "--version lacks the unpacked module"
[[ $out == *"DXF:"* ]] || fail "--version lacks the DXF versions"

# One layer by key against the unpacked files; the user's settings land in the home.
home=$scratch/home
mkdir -p "$home" "$scratch/tmp"
out=$(HOME=$home TMPDIR=$scratch/tmp "$root/usr/bin/ardo-cad" \
  -e '(kemb_newlayer "TEST" "A_ACHSE")' -e '(kemb_getlayername "TEST" "A_ACHSE")' \
  -o "$scratch/new.dxf" </dev/null 2>&1)
echo "$out"
[[ $out == *$'0\n"A-Achsen"'* ]] || fail "kemb_newlayer or kemb_getlayername gave no layer"
grep -q '^A-Achsen' "$scratch/new.dxf" || fail "the saved drawing lacks layer A-Achsen"
grep -q '^ARDO_STRICHPUNKT' "$scratch/new.dxf" || fail "the linetype was not loaded from the unpacked ardo.lin"
user=$(id -un)
[ -f "$home/.config/ardo/$user/Ardo.ini" ] || fail "no central layer file copied to ~/.config/ardo/$user"

# lintian, where installed, finds no errors.
if command -v lintian >/dev/null; then
  lintian --tag-display-limit 0 "$deb" >"$scratch/lintian.log" 2>&1 || true
  cat "$scratch/lintian.log"
  ! grep -q '^E:' "$scratch/lintian.log" || fail "lintian reports errors"
  ! grep -q 'ldconfig' "$scratch/lintian.log" || fail "lintian finds ldconfig calls for the module"
fi
echo "package test passed: $(basename "$deb")"
