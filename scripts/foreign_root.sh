# shellcheck shell=bash disable=SC2016
# Sourced by scripts/release: Debian's packages for another processor, without a change to this machine's package manager.

# make_foreign_root ARCHITECTURE FOLDER PACKAGE...: unpacks the packages and what they need into FOLDER, unless they are
# there already. FOLDER.apt keeps the packages, and FOLDER/versions lists them: one package and its version on each line.
make_foreign_root() {
    local architecture=$1 folder=$2 state=$2.apt deb apt
    shift 2
    mkdir -p "$state/lists/partial" "$state/cache/archives/partial"
    : >"$state/status"
    apt=(apt-get -qy -o APT::Architecture="$architecture" -o APT::Architectures="$architecture"
        -o Acquire::Languages=none -o APT::Install-Recommends=false -o APT::Sandbox::User=
        -o Dir::State="$state" -o Dir::State::status="$state/status" -o Dir::Cache="$state/cache")
    quietly "updating the package lists for $architecture" "${apt[@]}" update
    quietly "removing old packages for $architecture" "${apt[@]}" autoclean
    quietly "fetching packages for $architecture" "${apt[@]}" install --download-only "$@"
    for deb in "$state"/cache/archives/*.deb; do
        dpkg-deb --show --showformat '${Package} ${Version}\n' "$deb"
    done >"$state/versions"
    ! cmp -s "$state/versions" "$folder/versions" || return 0
    rm -rf "$folder"
    mkdir -p "$folder"
    for deb in "$state"/cache/archives/*.deb; do
        quietly "unpacking ${deb##*/}" dpkg-deb --extract "$deb" "$folder"
    done
    mv "$state/versions" "$folder/versions"
}
