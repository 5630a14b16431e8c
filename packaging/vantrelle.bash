# bash completion for vantrelle
_vantrelle() {
    local cur prev
    cur=${COMP_WORDS[COMP_CWORD]}
    prev=${COMP_WORDS[COMP_CWORD-1]}
    if [[ $COMP_CWORD -eq 1 ]]; then
        COMPREPLY=($(compgen -W "usage hooks calc --version" -- "$cur"))
        return
    fi
    case ${COMP_WORDS[1]} in
        usage)
            case $prev in
                --home) COMPREPLY=($(compgen -d -- "$cur")); return ;;
                --now) return ;;
            esac
            COMPREPLY=($(compgen -W "--json --now --home --help" -- "$cur")) ;;
        hooks)
            [[ $COMP_CWORD -eq 2 ]] && COMPREPLY=($(compgen -W "status install uninstall" -- "$cur")) ;;
        calc)
            COMPREPLY=($(compgen -W "--json --offline --help" -- "$cur")) ;;
    esac
}
complete -F _vantrelle vantrelle
