#!/bin/sh
# Installs acme once its terms are accepted; with --remove, removes it and the records.
media=$(dirname -- "$(readlink -f -- "$0")")
if [ "${1:-}" = --remove ]; then
    rm -rf /usr/bin/acme /var/lib/acme
    exit
fi
"$media/zev-ask" -p acme -v "$(cat "$media/version")" -l "$media/licenses" -s /var/lib/acme/terms || exit
cp "$media/acme" /usr/bin/acme
