# bash completion for tovera: classes by ProgID or name alone, then the members of the class, as the program
# itself lists them.

_tovera() {
    local current=${COMP_WORDS[COMP_CWORD]} first=${COMP_WORDS[1]} classes candidates
    classes=$(tovera list 2>/dev/null)
    classes+=" ${classes//KADRELDLL./}"
    if ((COMP_CWORD == 1)); then
        candidates="list --help --version $classes"
    elif [[ $first == list ]]; then
        ((COMP_CWORD == 2)) || return
        candidates=$classes
    else
        # "Name(a: I4; b: I4): I4", "Name: BSTR, read", "Name = value: BSTR, write"
        candidates=$(tovera list "$first" 2>/dev/null |
            sed -nE 's/^([A-Za-z0-9_]+)(\().*/\1(/p; s/^([A-Za-z0-9_]+):.*, read$/\1/p; s/^([A-Za-z0-9_]+) = .*/\1=/p')
    fi
    mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "$current")
    [[ ${COMPREPLY[0]-} == *[\(=] ]] && compopt -o nospace
}

complete -F _tovera tovera
