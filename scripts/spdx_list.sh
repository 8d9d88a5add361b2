# shellcheck shell=bash
# Sourced by scripts/release: lists what the files of a release contain, in SPDX format 2.3.

# declared_licence PACKAGE: the licence that a Debian package declares. Without an argument, prints all such packages.
declared_licence() {
    awk -v package="${1:-}" '
        /^#/ { next }
        package == "" { print $1 }
        package == $1 { sub(/^[^ ]+ +/, ""); print }' "$root/cmake/packages/licences"
}

# spdx_package ID NAME VERSION LICENCE MORE
spdx_package() {
    printf '    { "SPDXID": "%s", "name": "%s", "versionInfo": "%s", "licenseDeclared": "%s",
      "licenseConcluded": "NOASSERTION", "copyrightText": "NOASSERTION", "downloadLocation": "NOASSERTION",
      "filesAnalyzed": false, %s }' "$@"
}

spdx_relationship() {
    printf '    { "spdxElementId": "%s", "relationshipType": "%s", "relatedSpdxElement": "%s" }' "$@"
}

# spdx_list VERSION SUMS CONTENTS: SUMS has the output of sha256sum. CONTENTS has one line for each library in an executable: a
# pattern for the names of the files for a processor, Debian's name of the processor, and the library's package and version.
spdx_list() {
    local sum file processor architecture package version id
    local packages=() relationships=()
    while read -r sum file; do
        id=SPDXRef-${file//[!A-Za-z0-9.-]/-}
        packages+=("$(spdx_package "$id" zev "$1" Apache-2.0 "\"packageFileName\": \"$file\",
      \"checksums\": [{ \"algorithm\": \"SHA256\", \"checksumValue\": \"$sum\" }]")")
        relationships+=("$(spdx_relationship SPDXRef-DOCUMENT DESCRIBES "$id")")
        while read -r processor architecture package version; do
            [[ $file =~ $processor ]] || continue
            relationships+=("$(spdx_relationship "$id" STATIC_LINK "SPDXRef-$architecture-${package//+/-}")")
        done <"$3"
    done <"$2"
    while read -r processor architecture package version; do
        packages+=("$(spdx_package "SPDXRef-$architecture-${package//+/-}" "$package" "$version" \
            "$(declared_licence "$package")" "\"externalRefs\": [{ \"referenceCategory\": \"PACKAGE-MANAGER\",
      \"referenceType\": \"purl\",
      \"referenceLocator\": \"pkg:deb/debian/${package//+/%2B}@${version//+/%2B}?arch=$architecture\" }]")")
    done <"$3"

    printf '{ "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT", "name": "zev-%s",\n' "$1"
    printf '  "documentNamespace": "urn:zev:%s:%s",\n' "$1" "$(sha256sum <"$2" | cut -d ' ' -f 1)"
    printf '  "creationInfo": { "created": "%s", "creators": ["Organization: zev"] },\n' \
        "$(date -u -d "@$SOURCE_DATE_EPOCH" +%FT%TZ)"
    local IFS=,
    printf '  "packages": [\n%s\n  ],\n' "${packages[*]/#/$'\n'}"
    printf '  "relationships": [\n%s\n  ] }\n' "${relationships[*]/#/$'\n'}"
}
