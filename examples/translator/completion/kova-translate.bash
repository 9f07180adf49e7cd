# Completion of kova-translate for bash; it needs the functions of the package bash-completion.

_kova_translate() {
  local cur prev words cword split
  _init_completion -s -n : || return

  local formats
  case $prev in
    --from-format | --to-format)
      formats=$("$1" --list-formats 2>/dev/null)
      COMPREPLY=($(compgen -W "$(awk '{ print $1 }' <<<"$formats")" -- "$cur"))
      return
      ;;
    --from-unit | --to-unit)
      COMPREPLY=($(compgen -W 'mm cm meter km inch ft mile nm micr' -- "$cur"))
      return
      ;;
    --level)
      COMPREPLY=($(compgen -W 'BRIEF ALL DEBUG VERBOSE INFO ERROR ABORT NONE' -- "${cur^^}"))
      return
      ;;
    --set)
      COMPREPLY=($(compgen -S = -W "$("$1" --list-options 2>/dev/null | awk '{ print $1 }')" -- "$cur"))
      compopt -o nospace
      return
      ;;
    --placement)
      return
      ;;
    --options | --log | --log-json)
      _filedir
      return
      ;;
  esac
  $split && return

  if [[ $cur == -* ]]; then
    COMPREPLY=($(compgen -W "$("$1" --help 2>/dev/null | sed -n 's/^  [- ].\{0,3\}\(--[a-z-]*=\{0,1\}\).*/\1/p')" -- "$cur"))
    [[ ${COMPREPLY-} == *= ]] && compopt -o nospace
    return
  fi
  formats=$("$1" --list-formats 2>/dev/null | awk '{ print $1 }' | paste -s -d '|')
  _filedir "@($formats)"
} &&
  complete -F _kova_translate kova-translate
