# fish completion for zev-audit

complete -c zev-audit -x -a '(__fish_complete_directories)'
complete -c zev-audit -l tsv -d 'print all fields, separated by tabs'
complete -c zev-audit -l json -d 'print JSON'
complete -c zev-audit -l expect -x -d 'expect a record of these terms'
complete -c zev-audit -s p -x -d 'show this product only'
complete -c zev-audit -s l -x -a '(__fish_complete_directories)' -d 'licence directory to compare with'
complete -c zev-audit -l langset -x -a '3 4' -d 'the set of languages'
complete -c zev-audit -l help -d 'print the options'
complete -c zev-audit -l version -d 'print the version'
