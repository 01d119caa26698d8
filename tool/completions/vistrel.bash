# Completion of vistrel for bash.

_vistrel_applications() {
    local folder application
    for folder in ~/GNUstep/Applications /usr/local/lib/GNUstep/Applications \
        /usr/lib/GNUstep/Applications; do
        for application in "$folder"/*.app; do
            [ -d "$application" ] && basename "$application" .app
        done
    done
}

_vistrel() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' i
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --bundles) ((++i)) ;;
        -*) ;;
        *)
            command=${COMP_WORDS[i]}
            break
            ;;
        esac
    done

    local words=''
    case $previous in
    --app) words=$(_vistrel_applications) ;;
    --bundles)
        compopt -o dirnames
        return
        ;;
    --timeout) return ;;
    *)
        case $command in
        '') words='enable disable run status doctor settings purge --help --version --bundles' ;;
        enable | disable) words='--help --app --dry-run' ;;
        purge) words='--help --dry-run' ;;
        run)
            if ((COMP_CWORD > i + 1)) && [[ $previous != -* ]]; then
                compopt -o default
                return
            fi
            words="--help --dry-run $(_vistrel_applications)"
            ;;
        status) words='--help --json' ;;
        doctor) words="--help --timeout --json $(_vistrel_applications)" ;;
        settings) words='--help --app --json' ;;
        esac
        ;;
    esac
    while IFS= read -r word; do
        COMPREPLY+=("$word")
    done < <(compgen -W "$words" -- "$current")
}

complete -F _vistrel vistrel
