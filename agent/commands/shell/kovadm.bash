# bash completion for kovadm, which knows its commands, options and parameters itself.
# shellcheck shell=bash

_kovadm() {
  local words line=${COMP_LINE:0:COMP_POINT}
  read -ra words <<<"$line"
  [[ $line != *[[:space:]] ]] || words+=('')
  if [[ ${words[-1]} == *=@* ]]; then
    mapfile -t COMPREPLY < <(compgen -f -P @ -- "${words[-1]#*=@}")
  else
    mapfile -t COMPREPLY < <("$1" complete "${words[@]:1}" 2>/dev/null)
  fi
  # bash takes what stands behind a colon for a word of its own.
  local before_colon=${words[-1]%"${words[-1]##*:}"}
  [[ $COMP_WORDBREAKS != *:* ]] || COMPREPLY=("${COMPREPLY[@]#"$before_colon"}")
  # More is to come behind an object's dot, and a value behind "=".
  [[ ${COMPREPLY[0]-} != *[.=] ]] || compopt -o nospace
}
# Files where kovadm has nothing to say.
complete -o bashdefault -o default -F _kovadm kovadm
