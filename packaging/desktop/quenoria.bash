# Completion of quenoria's options for bash.
_quenoria()
{
    local cur prev words cword
    _init_completion || return
    case $prev in
        --data-dir | --tour)
            _filedir -d
            return
            ;;
        --repetition)
            mapfile -t COMPREPLY < <(compgen -W "sms email tout" -- "$cur")
            return
            ;;
        --appearance)
            mapfile -t COMPREPLY < <(compgen -W "light dark auto" -- "$cur")
            return
            ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--demo --data-dir --tour --repetition --appearance
            --help --version" -- "$cur")
    else
        _filedir xlsx
    fi
} && complete -F _quenoria quenoria
