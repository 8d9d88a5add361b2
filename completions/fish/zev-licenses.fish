# fish completion for zev-licenses

set -l languages 'cs de el en es fr it ja ko lt pl pt ru sl tr zh zh_TW'
set -l commands build check preview
set -l some "__fish_seen_subcommand_from $commands"
set -l build '__fish_seen_subcommand_from build'
set -l check '__fish_seen_subcommand_from check'
set -l judges '__fish_seen_subcommand_from build check'
set -l preview '__fish_seen_subcommand_from preview'

complete -c zev-licenses -f
complete -c zev-licenses -n "not $some" -a build -d 'make a licence directory from texts in UTF-8'
complete -c zev-licenses -n "not $some" -a check -d 'find what is wrong with a licence directory'
complete -c zev-licenses -n "not $some" -a preview -d 'show what zev shows of a licence directory'
complete -c zev-licenses -n "not $some" -l version -d 'print the version'
complete -c zev-licenses -l help -d 'print the options'
complete -c zev-licenses -n $some -a '(__fish_complete_directories)'
complete -c zev-licenses -n $some -l langset -x -a '3 4' -d 'the set of languages'
complete -c zev-licenses -n $judges -l json -d 'write JSON'
complete -c zev-licenses -n $judges -l strict -d 'count warnings as failures'
complete -c zev-licenses -n $judges -l accept -x -d 'accept the warnings of a kind'
complete -c zev-licenses -n $build -F
complete -c zev-licenses -n $build -l lang -x -a $languages -d 'language of the one text'
complete -c zev-licenses -n $build -l stand-in -x -a $languages -d 'language in the place of a missing one'
complete -c zev-licenses -n $check -l stand-in -x -a $languages -d 'language that may stand in the place of others'
complete -c zev-licenses -n $check -l pages -d 'add what the code pages of each language lose'
complete -c zev-licenses -n $preview -l lang -x -a $languages -d 'languages to show'
complete -c zev-licenses -n $preview -l width -x -d 'columns of the terminal'
complete -c zev-licenses -n $preview -l pages-of -x -d 'lines of the terminal'
complete -c zev-licenses -n $preview -l code-page -x -d 'code page of the terminal'
complete -c zev-licenses -n $preview -l html -r -F -d 'write a page for the browser'
