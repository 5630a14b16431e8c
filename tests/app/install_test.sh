#!/usr/bin/env bash
# `make install` into a staging folder and `make package`: the files land where a desktop looks for them,
# the metadata validates, and the Debian package holds the same files with computed dependencies.
# Usage: install_test.sh <build dir> <version>
set -euo pipefail
build=$1
version=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

DESTDIR="$work/stage" cmake --install "$build" --prefix /usr >/dev/null
root="$work/stage/usr"
for file in bin/vantrelle libexec/vantrelle/vantrelle-shell share/applications/com.quorvane.vantrelle.desktop \
  share/icons/hicolor/scalable/apps/com.quorvane.vantrelle.svg share/metainfo/com.quorvane.vantrelle.metainfo.xml \
  share/man/man1/vantrelle.1 share/bash-completion/completions/vantrelle share/zsh/vendor-completions/_vantrelle; do
  [[ -f "$root/$file" ]] || fail "not installed: $file"
done
[[ "$("$root/bin/vantrelle" --version)" == "vantrelle $version" ]] || fail "--version"
# The command finds the shell program where it was installed, and hands other commands to it.
[[ "$("$root/bin/vantrelle" calc 2+2)" == 4* ]] || fail "the installed command doesn't reach the shell"
grep -q "release version=\"$version\"" "$root/share/metainfo/com.quorvane.vantrelle.metainfo.xml" ||
  fail "the metadata names another release"
if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate "$root/share/applications/com.quorvane.vantrelle.desktop" || fail "desktop entry"
fi
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net "$root/share/metainfo/com.quorvane.vantrelle.metainfo.xml" >/dev/null ||
    fail "AppStream metadata"
fi

if command -v dpkg-deb >/dev/null && command -v dpkg-shlibdeps >/dev/null; then
  (cd "$work" && cpack -G DEB -B "$work/package" --config "$build/CPackConfig.cmake" >/dev/null)
  deb=$(ls "$work"/package/vantrelle_"$version"_*.deb)
  depends=$(dpkg-deb -f "$deb" Depends)
  for library in libqt6core6 libqt6quick6 libxcb1 libsimdjson fonts-material-design-icons-iconfont; do
    grep -q "$library" <<<"$depends" || fail "Depends lacks $library: $depends"
  done
  # Unpacked into a throwaway root, the packaged program runs and its desktop files are there.
  dpkg-deb -x "$deb" "$work/unpacked"
  [[ "$("$work/unpacked/usr/bin/vantrelle" calc 2+2)" == 4* ]] || fail "packaged binary"
  for file in applications/com.quorvane.vantrelle.desktop metainfo/com.quorvane.vantrelle.metainfo.xml; do
    cmp -s "$root/share/$file" "$work/unpacked/usr/share/$file" || fail "package lacks $file"
  done
fi
echo "install: ok"
