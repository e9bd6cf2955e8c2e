# bash completion for tovera: classes by ProgID or name alone, then the members of the class, as the program
# itself lists them, with their parameters at the next Tab. A quote may be open in front of either.

_tovera() {
    local program=${COMP_WORDS[0]/#\~/$HOME} current=${COMP_WORDS[COMP_CWORD]} first=${COMP_WORDS[1]//[\'\"]/}
    local classes candidates members signature
    [[ $current != ?*[\'\"] ]] || return 0 # a closed quote
    current=${current#[\'\"]}
    classes=$("$program" list 2>/dev/null)
    classes+=" ${classes//KADRELDLL./}"
    if ((COMP_CWORD == 1)); then
        candidates="list --help --version $classes"
    elif [[ $first == list ]]; then
        ((COMP_CWORD == 2)) || return 0
        candidates=$classes
    else
        # "Name(a: I4; b: I4): I4", "Name(): I4", "Name: BSTR, read", "Name = value: BSTR, write"
        members=$("$program" list "$first" 2>/dev/null)
        candidates=$(sed -nE 's/^([A-Za-z0-9_]+)\(\).*/\1/p; s/^([A-Za-z0-9_]+\().+/\1/p
            s/^([A-Za-z0-9_]+):.*, read$/\1/p; s/^([A-Za-z0-9_]+) = .*/\1=/p' <<<"$members")
    fi
    mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "$current")
    [[ ${COMPREPLY[0]-} == *[\(=] ]] && compopt -o nospace
    # With its signature beside it a method isn't complete, and an open quote stays open.
    if ((${#COMPREPLY[@]} == 1)) && [[ ${COMPREPLY[0]} == *\( ]]; then
        signature=$(grep -F -m 1 "${COMPREPLY[0]}" <<<"$members")
        COMPREPLY+=("$signature")
    fi
}

complete -F _tovera tovera
