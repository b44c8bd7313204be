#!/usr/bin/env bash
# Prints where the upstream tarball of a Debian source package lies, got from the archive unless it
# is there; any Debian revision of that version will do.
#   fetch.sh SOURCE VERSION SHA256 FOLDER APT_FOLDER
# APT_FOLDER keeps the source lists through several calls. Exit status: 1 for a file with another
# checksum, 3 with the reason when it could not be had.
set -euo pipefail
source=$1 version=$2 sha256=$3 folder=$4 apt=$5
keyring=/usr/share/keyrings/debian-archive-keyring.gpg

# An apt of our own beside the machine's: the source lists of the same archives, and those of
# unstable. The machine's settings hold (a proxy, say), its hooks do not.
open_archive() {
  local codename uri suite
  mkdir -p "$apt/lists/partial" "$apt/archives/partial" "$apt/get"
  codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
  apt-get update --print-uris |
    sed -nE "s|^'(.*)/dists/(${codename}[^/']*)/InRelease'.*|\1 \2|p" | sort -u |
    while read -r uri suite; do
      echo "deb-src [signed-by=$keyring] $uri $suite main"
      [ "$suite" != "$codename" ] || echo "deb-src [signed-by=$keyring] $uri unstable main"
    done >"$apt/sources.list"
  cat >"$apt/apt.conf" <<CONF
#clear APT::Update;
Dir::Etc::sourcelist "$apt/sources.list";
Dir::Etc::sourceparts "-";
Dir::State::lists "$apt/lists";
Dir::Cache "$apt";
APT::Sandbox::User "root";
Acquire::Retries "2";
Acquire::http::Timeout "20";
Acquire::https::Timeout "20";
CONF
  apt-get -c "$apt/apt.conf" update -q >"$apt/update.log" 2>&1 || true
}

# The Debian version whose upstream part is ours.
debian_version() {
  local escaped
  escaped=$(sed 's/[.+]/\\&/g' <<<"$version")
  { apt-cache -c "$apt/apt.conf" showsrc --only-source "$source" 2>/dev/null || true; } |
    sed -nE "s/^Version: (([0-9]+:)?$escaped-.*)/\1/p" | sort -V | tail -n 1
}

tarball_in() { compgen -G "$1/${source}_$version.orig.tar.?z*" | grep -v '\.asc$'; }

fail() {
  local log=$1 text=$2 reason
  reason=$(grep -m 1 '^[EW]:' "$log") && text+=" ($reason)"
  echo "$text" >&2
  exit 3
}

download() {
  local revision
  [ -d "$apt" ] || open_archive
  revision=$(debian_version)
  [ -n "$revision" ] || fail "$apt/update.log" "not in the source lists of the archive"
  (cd "$apt/get" && apt-get -c "$apt/apt.conf" source -q --download-only --tar-only --only-source \
    "$source=$revision") >"$apt/get.log" 2>&1 || true
  tarball=$(tarball_in "$apt/get") || fail "$apt/get.log" "the download of $revision failed"
}

tarball=$(tarball_in "$folder") || download
sum=$(sha256sum "$tarball" | cut -d ' ' -f 1)
if [ "$sum" != "$sha256" ]; then
  echo "$(basename "$tarball") has the SHA-256 $sum, expected is $sha256" >&2
  rm "$tarball"
  exit 1
fi
if [ "$(dirname "$tarball")" != "$folder" ]; then
  mkdir -p "$folder"
  mv "$tarball" "$folder"
fi
tarball_in "$folder"
