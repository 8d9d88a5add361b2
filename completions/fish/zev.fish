# fish completion for zev

complete -c zev -f
complete -c zev -o l -x -a '(__fish_complete_directories)' -d 'licence directory'
complete -c zev -o s -x -a '(__fish_complete_directories)' -d 'status directory'
complete -c zev -o m -x -a '(__fish_complete_directories)' -d 'master directory of a group install'
complete -c zev -o t -x -a 5 -d 'accept without showing anything'
complete -c zev -o setlang -x -a 'cs de el en es fr it ja ko lt pl pt ru sl tr zh zh_TW' -d 'preferred language'
complete -c zev -o langset -x -a 3 -d 'the smaller set of languages'
complete -c zev -o show_exit_code -d 'print the exit code in every case'
complete -c zev -o version -d 'print the version and go on'
complete -c zev -o debug -r -F -d 'trace the run'
complete -c zev -o debugBreakText -r -F -d 'trace line breaking'
complete -c zev -o cmdlog -r -F -d 'write the answers typed'
complete -c zev -o dimout -r -F -d 'write the height and width of the screen'
