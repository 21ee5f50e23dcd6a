# Completion of marrowcut for bash; loaded by bash-completion when it is first wanted.

_marrowcut() {
    local cur prev words cword
    _init_completion || return

    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W '--help --version' -- "$cur"))
    else
        _filedir '@(mxf|mov|mp4)'
    fi
} && complete -F _marrowcut marrowcut
