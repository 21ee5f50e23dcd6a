# Completion of marrowcut-cli for fish.

complete -c marrowcut-cli -f -a '(__fish_complete_path (commandline -ct) | string match -rie "^[^\t]+(?:\.mxf|\.mov|\.mp4|/)(?:\t|\$)")'
complete -c marrowcut-cli -l quality -x -d 'Size of the proxies' \
    -a 'standard\t"960 pixels wide" smaller\t"720 pixels wide" tiny\t"480 pixels wide"'
complete -c marrowcut-cli -l encoder -x -d 'H.264 encoder' -a 'auto libx264 h264_nvenc h264_qsv'
complete -c marrowcut-cli -l no-burn-in -d 'Make proxies without burned-in text'
complete -c marrowcut-cli -l recursive -d 'Search subfolders too'
complete -c marrowcut-cli -l files-from -r -F -d 'Read more paths from a file, - for standard input'
complete -c marrowcut-cli -l quiet -d 'Print failures only'
complete -c marrowcut-cli -l json -d 'Print one JSON object per line and event'
complete -c marrowcut-cli -l notify -d 'Show a desktop notification at the end'
complete -c marrowcut-cli -s h -l help -d 'Show the help'
complete -c marrowcut-cli -s V -l version -d 'Show the version'
complete -c marrowcut-cli -l verbose -d 'Show the encoder with the version'
