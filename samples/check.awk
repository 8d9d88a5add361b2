# Compares a text of the sample agreement, the second file, with the English one, the first. Each line must be the same clause,
# item or row, and have the names, numbers and addresses that no translation changes. In Czech, Polish and Slovenian no line may
# end in a one-letter word.
function beginning(line, letters, at, item) {
    if (match(line, /^([0-9]\.| +)/)) return substr(line, 1, RLENGTH)
    for (at = split(letters, item, " "); at > 0; --at) if (index(line, "(" item[at] ")") == 1) return "item " at
    return ""
}
function complain(what) {
    print FILENAME ":" FNR ": " what ": " $0 > "/dev/stderr"
    failed = 1
}
BEGIN {
    facts = "https[^ ]*html|[A-Za-z]+@[A-Za-z.]+[A-Za-z]|[A-Za-z][^ ]*/[*][.][a-z]+|[0-9][0-9.]*[0-9]|Harbour Ledger( license)?|" \
        "VUR|TEST|Tidegauge Parser|Northquay Cooperative|Lanternsort|Brisk Otter Works|Pebble Figures|Ilse Marrow"
    oneLetterWord = "(^| |\302\240)[A-Za-z] "
}
NR == FNR { english[count = FNR] = $0; next }
{
    letters = FILENAME ~ /_el/ ? "α β γ" : FILENAME ~ /_ru/ ? "а б в" : "a b c"
    rest = english[FNR]
    if (($0 == "") != (rest == "") || beginning($0, letters) != beginning(rest, "a b c")) complain("another structure")
    for (; match(rest, facts); rest = substr(rest, RSTART + RLENGTH)) {
        fact = substr(rest, RSTART, RLENGTH)
        if (index($0, fact) == 0) complain("without " fact)
    }
    if (FILENAME ~ /_(cs|pl|sl)[.]txt$/ && $0 ~ oneLetterWord) complain("a line may end in a one-letter word")
}
END {
    if (FNR != count) complain("not the lines of the English")
    exit failed
}
