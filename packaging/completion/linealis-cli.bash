# bash completion for linealis-cli(1), which itself tells what can follow.

_linealis_cli() {
    local cur words cword line word
    _get_comp_words_by_ref -n '=:' cur words cword
    COMPREPLY=()
    while IFS= read -r line; do
        case $line in
            :files) compopt -o filenames; mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$cur") ;;
            :folders) compopt -o filenames; mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -d -- "$cur") ;;
            *)
                word=${line%%$'\t'*}
                [[ $word == *= ]] && compopt -o nospace
                # The shell completes what stands behind the "=" alone.
                [[ $cur == *=* && $COMP_WORDBREAKS == *=* ]] && word=${word#*=}
                [[ $word == *= ]] || printf -v word %q "$word"
                COMPREPLY+=("$word")
                ;;
        esac
    done < <(linealis-cli complete "${words[@]:1:cword}" 2> /dev/null)
}

complete -F _linealis_cli linealis-cli
