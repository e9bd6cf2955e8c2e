# bash completion for tovera: classes, then the members of the class, as the program itself lists them.

_tovera() {
    local current=${COMP_WORDS[COMP_CWORD]} first=${COMP_WORDS[1]} candidates
    if ((COMP_CWORD == 1)); then
        candidates="list --help --version $(tovera list 2>/dev/null)"
    elif [[ $first == list ]]; then
        ((COMP_CWORD == 2)) || return
        candidates=$(tovera list 2>/dev/null)
    else
        # "Name(a: I4; b: I4): I4", "Name: BSTR, read", "Name = value: BSTR, write"
        candidates=$(tovera list "$first" 2>/dev/null |
            sed -nE 's/^([A-Za-z_]+)(\().*/\1(/p; s/^([A-Za-z_]+):.*, read$/\1/p; s/^([A-Za-z_]+) = .*/\1=/p')
    fi
    mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "$current")
    [[ ${COMPREPLY[0]-} == *[\(=] ]] && compopt -o nospace
}

complete -F _tovera tovera
