# Completion of veldrin-calendar for bash.

# _veldrin_calendar_offer TEXT WORD...: offers the words that begin with the text, ignoring case; if
# there are none, offers all words. Bash replaces the text by a single offered word.
_veldrin_calendar_offer() {
  local text=${1,,} word
  shift
  for word in "$@"; do
    [[ ${word,,} == "$text"* ]] && COMPREPLY+=("$word")
  done
  [ ${#COMPREPLY[@]} -gt 0 ] || COMPREPLY=("$@")
}

# _veldrin_calendar_zones TEXT: offers the zones with a name or a part of it that begins with the text.
_veldrin_calendar_zones() {
  local text=${1// /_} zone zones=(here)
  local folder=${TZDIR:-/usr/share/zoneinfo}
  mapfile -t -O 1 zones < <(cd "$folder" 2>/dev/null && find [A-Z]* -not -type d 2>/dev/null | sort)
  local matching=()
  for zone in "${zones[@]}"; do
    [[ ${zone,,} == "${text,,}"* || ${zone,,} == */"${text,,}"* ]] && matching+=("$zone")
  done
  _veldrin_calendar_offer "$text" "${matching[@]}"
}

# _veldrin_calendar_towns PROGRAM TEXT: offers the towns that match the text before its first comma.
_veldrin_calendar_towns() {
  local towns
  [ -n "${2%%,*}" ] || return
  mapfile -t towns < <("$1" --towns "${2%%,*}" 2>/dev/null | cut -f 1)
  _veldrin_calendar_offer "$2" "${towns[@]}"
}

_veldrin_calendar() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} text
  # Bash makes three words of --option=value: the option, "=" and the value.
  if [ "$word" = = ]; then
    word=
  elif [ "$option" = = ]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  # The word without its opening quote and backslashes.
  text=${word#[\"\']}
  text=${text//\\/}
  case $option in
    --town | --towns)
      _veldrin_calendar_towns "${COMP_WORDS[0]}" "$text"
      # Bash quotes blanks and commas only in file names.
      compopt -o filenames -o nosort
      ;;
    --zone) _veldrin_calendar_zones "$text" ;;
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
