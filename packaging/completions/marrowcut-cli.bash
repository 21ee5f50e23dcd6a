# Completion of marrowcut-cli for bash; loaded by bash-completion when it is first wanted.

_marrowcut_cli() {
    local cur prev words cword split
    _init_completion -s || return

    case $prev in
    --quality)
        COMPREPLY=($(compgen -W 'standard smaller tiny' -- "$cur"))
        return
        ;;
    --encoder)
        COMPREPLY=($(compgen -W 'auto libx264 h264_nvenc h264_qsv' -- "$cur"))
        return
        ;;
    --files-from)
        _filedir
        return
        ;;
    esac
    $split && return

    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W '--quality --encoder --no-burn-in --recursive --files-from --quiet --json \
            --notify --help --version --verbose' -- "$cur"))
    else
        _filedir '@(mxf|mov|mp4)'
    fi
} && complete -F _marrowcut_cli marrowcut-cli
