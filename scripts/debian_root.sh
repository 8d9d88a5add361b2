# shellcheck shell=bash disable=SC2016,SC2034,SC2086
# Sourced by commands that try zev on other systems: makes a bare Debian in a folder.

debian_root_needs='
command -v debootstrap | debootstrap | debootstrap'

# make_debian RELEASE FOLDER: unpacks a bare Debian, such as bookworm, from the mirror of this machine. The first time takes
# two minutes; build/roots keeps what debootstrap made. The variable as_root can hold the command sudo.
make_debian() {
    local kept=$root/build/roots/$1.tar mirror
    if [ ! -e "$kept" ]; then
        mirror=$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' \
            "Codename: $(. /etc/os-release && echo "${VERSION_CODENAME:-}")" | head -n 1)
        mkdir -p "$root/build/roots"
        ${as_root:-} rm -rf "$kept.folder"
        quietly "making a bare Debian $1" \
            ${as_root:-} debootstrap --variant=minbase --include=ca-certificates "$1" "$kept.folder" "$mirror"
        ${as_root:-} tar -C "$kept.folder" -cf "$kept.part" .
        ${as_root:-} rm -rf "$kept.folder"
        mv "$kept.part" "$kept"
    fi
    ${as_root:-} mkdir -p "$2"
    ${as_root:-} tar -C "$2" -xf "$kept"
}
