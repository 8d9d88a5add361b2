#!/bin/sh
# install.sh                        asks on the terminal to accept the terms of acme, and then installs it
# install.sh --accept FINGERPRINT   the same without a dialogue, for terms that were read elsewhere
# install.sh --show                 prints the terms
# install.sh --fingerprint          prints their fingerprint
# install.sh --remove               removes acme; the records of zev-ask stay
#
# Any other argument is refused: zev-ask also exits with 0 after --help, although nothing was accepted.
media=$(dirname -- "$(readlink -f -- "$0")")
case "$# ${1:-}" in
    '0 ') ;;
    '2 --accept') set -- "--accept=$2" ;;
    '1 --show' | '1 --fingerprint') exec "$media/zev-ask" "$1" -l "$media/licenses" ;;
    '1 --remove') exec rm -f /usr/bin/acme ;;
    *) sed -n 's/^# //p' "$media/install.sh" >&2 && exit 3 ;;
esac
"$media/zev-ask" -p acme -v "$(cat "$media/version")" -l "$media/licenses" "$@" || exit
cp "$media/acme" /usr/bin/acme
