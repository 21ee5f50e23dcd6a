# Completion of marrowcut for fish.

complete -c marrowcut -f -a '(__fish_complete_path (commandline -ct) | string match -rie "^[^\t]+(?:\.mxf|\.mov|\.mp4|/)(?:\t|\$)")'
complete -c marrowcut -l help -d 'Show the help'
complete -c marrowcut -l version -d 'Show the version'
