# fish completion for zev-ask

complete -c zev-ask -f
complete -c zev-ask -s p -x -d 'product'
complete -c zev-ask -s v -x -d 'version of the product'
complete -c zev-ask -s l -x -a '(__fish_complete_directories)' -d 'licence directory'
complete -c zev-ask -s s -x -a '(__fish_complete_directories)' -d 'state directory'
complete -c zev-ask -s m -x -a '(__fish_complete_directories)' -d 'master directory of a group'
complete -c zev-ask -l accept -x -a any -d 'accept without a dialogue'
complete -c zev-ask -l expect -x -d 'refuse other terms'
complete -c zev-ask -l lang -x -a 'cs de el en es fr it ja ko lt pl pt ru sl tr zh zh_TW' -d 'language to show'
complete -c zev-ask -l choose -d 'offer a menu of the languages first'
complete -c zev-ask -l langset -x -a '3 4' -d 'the set of languages'
complete -c zev-ask -l wait -x -d 'seconds to wait for each answer'
complete -c zev-ask -l note -x -d 'a note for the record'
complete -c zev-ask -l fingerprint -d 'print the fingerprint'
complete -c zev-ask -l show -d 'print the terms in UTF-8'
complete -c zev-ask -l help -d 'print the options'
complete -c zev-ask -l version -d 'print the version'
