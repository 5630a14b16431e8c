# bash completion for vantrelle
_vantrelle() {
    local cur prev
    cur=${COMP_WORDS[COMP_CWORD]}
    prev=${COMP_WORDS[COMP_CWORD-1]}
    if [[ $COMP_CWORD -eq 1 ]]; then
        COMPREPLY=($(compgen -W "usage statusline hooks calc today servers screentime wrapped --version --quit" -- "$cur"))
        return
    fi
    case ${COMP_WORDS[1]} in
        usage)
            case $prev in
                --home) COMPREPLY=($(compgen -d -- "$cur")); return ;;
                --now|--since|--until) return ;;
                --tz) COMPREPLY=($(cd /usr/share/zoneinfo 2>/dev/null && compgen -f -- "$cur")); return ;;
            esac
            local words="--json --now --home --tz --help"
            [[ $COMP_CWORD -eq 2 ]] && words+=" daily monthly session blocks"
            [[ ${COMP_WORDS[2]} == @(daily|monthly|session|blocks) ]] && words+=" --since --until --breakdown"
            [[ ${COMP_WORDS[2]} == blocks ]] && words+=" --live"
            COMPREPLY=($(compgen -W "$words" -- "$cur")) ;;
        hooks)
            if [[ $COMP_CWORD -eq 2 ]]; then
                COMPREPLY=($(compgen -W "status install uninstall" -- "$cur"))
            else
                COMPREPLY=($(compgen -W "--statusline --replace" -- "$cur"))
            fi ;;
        statusline)
            COMPREPLY=($(compgen -W "--format --help" -- "$cur")) ;;
        calc)
            COMPREPLY=($(compgen -W "--json --offline --help" -- "$cur")) ;;
    esac
}
complete -F _vantrelle vantrelle
