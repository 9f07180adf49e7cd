#!/bin/bash
# usage: completion_test.sh BUILD FOLDER
# What shells offer in the installed program's place, and what its man page has, are the arguments that --help lists.
set -u
rm -rf "$2" && cmake --install "$1" --component tools --prefix "$2" >/dev/null &&
  cmake --install "$1" --component runtime --prefix "$2" >/dev/null && mkdir "$2/models" && cd "$2/models" || exit 1
PATH=$2/bin:$PATH
wrong=0
expect() { # WHAT WANTED SEEN
  [ "$2" = "$3" ] && return
  printf '%s\nwanted: %s\nseen:   %s\n' "$1" "$2" "$3"
  wrong=1
}
arguments() { grep -oE -- '--[a-z-]+' | sort -u | tr '\n' ' '; }
all=$(kova-translate --help | arguments)

. /usr/share/bash-completion/bash_completion
. "$2/share/bash-completion/completions/kova-translate"
bash_offers() { # LINE
  COMP_LINE=$1 COMP_POINT=${#1} COMPREPLY=()
  read -ra COMP_WORDS <<<"${1//=/ = }"
  [[ $1 == *' ' || $1 == *= ]] && COMP_WORDS+=('')
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  _kova_translate kova-translate 2>/dev/null # compopt wants a shell that completes
  printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' '
}
expect 'bash: all' "$all" "$(bash_offers 'kova-translate --' | arguments)"
expect 'bash: formats' 'obj ply stl ' "$(bash_offers 'kova-translate --to-format ')"
expect 'bash: levels' 'ABORT ALL ' "$(bash_offers 'kova-translate --level=a')"
expect 'bash: options' '/STL/Export/Ascii= ' "$(bash_offers 'kova-translate --set /S')"
touch a.stl b.txt c.obj && mkdir folder
expect 'bash: files' 'a.stl c.obj folder ' "$(bash_offers 'kova-translate ')"

# The completion system finds the function, and this is what it tells it.
zsh_tells=$(folder=$2/share/zsh/site-functions zsh -f -c '
  fpath=($folder $fpath)
  autoload -U compinit && compinit -u -D
  _arguments() { print -l -- "$@" }
  autoload -U +X $_comps[kova-translate] && $_comps[kova-translate]')
expect 'zsh: all' "$all" "$(sed -n 's/^\(([^)]*)\)\{0,1\}\*\{0,1\}\(--[a-z-]*\).*/\2/p' <<<"$zsh_tells" | arguments)"

# The man page is the help in other clothes: of its words only headings are missing.
words() { tr -s ' \t\n' '\n' | LC_ALL=C sort -u; }
man_words=$(MANWIDTH=1000 LC_ALL=C.UTF-8 man -l "$2/share/man/man1/kova-translate.1" | col -b | words)
expect 'man page' 'Environment: Examples: Usage: or: ' \
  "$(kova-translate --help | words | LC_ALL=C comm -23 - <(echo "$man_words") | tr '\n' ' ')"
exit $wrong
