# Completion of veldrin-calendar for bash.

_veldrin_calendar_zones() {
  (cd "${TZDIR:-/usr/share/zoneinfo}" 2>/dev/null && find [A-Z]* -not -type d 2>/dev/null)
}

# _veldrin_calendar_towns PROGRAM TEXT: the towns of the name before the first comma of a text. Those
# that begin with the text are offered, or else all of them: bash puts a single one in its place.
_veldrin_calendar_towns() {
  local town towns begun=()
  [ -n "${2%%,*}" ] || return
  mapfile -t towns < <("$1" --towns "${2%%,*}" 2>/dev/null | cut -f 1)
  for town in "${towns[@]}"; do
    [[ ${town,,} == "${2,,}"* ]] && begun+=("$town")
  done
  [ ${#begun[@]} -eq 0 ] || towns=("${begun[@]}")
  COMPREPLY=("${towns[@]}")
}

_veldrin_calendar() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} text
  # Bash makes a word of the sign between an option and its value.
  if [ "$word" = = ]; then
    word=
  elif [ "$option" = = ]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  # The word without what quotes it.
  text=${word#[\"\']}
  text=${text//\\/}
  case $option in
    --town | --towns)
      _veldrin_calendar_towns "${COMP_WORDS[0]}" "$text"
      # Bash quotes blanks and commas of files only.
      compopt -o filenames -o nosort
      ;;
    --zone) mapfile -t COMPREPLY < <(compgen -W "$(_veldrin_calendar_zones)" -- "$text") ;;
    --twilight) mapfile -t COMPREPLY < <(compgen -W "civil nautical astronomical" -- "$text") ;;
    --output | --chart)
      mapfile -t COMPREPLY < <(compgen -f -- "$text")
      compopt -o filenames
      ;;
    --latitude | --longitude | --time-zone | --year | --years | --dst-start | --dst-end | --status | \
      --place | --remind) ;;
    *)
      mapfile -t COMPREPLY < <(compgen -W "--latitude= --longitude= --time-zone= --town= --towns= \
        --zone= --year= --years= --dst --no-dst --dst-start= --dst-end= --down-under --output= \
        --chart= --status= --standard --place= --twilight= --remind= --help --version" -- "$word")
      [[ ${COMPREPLY[0]-} == *= ]] && compopt -o nospace
      ;;
  esac
}

complete -F _veldrin_calendar veldrin-calendar
