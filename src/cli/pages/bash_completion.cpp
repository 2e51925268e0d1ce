#include "cli/pages/completion_tables.h"
#include "cli/pages/completions.h"
#include "cli/pages/shell_table.h"

namespace morvane::pages {
namespace {

/// It leans on nothing but bash, so that it works without the package of helpers too.
constexpr const char* kEngine = R"SCRIPT(
# The words up to the cursor. Bash cuts them at = and : as well; here they are whole.
_PROGRAM__words() {
  local rest=${COMP_LINE:0:COMP_POINT} trimmed word i
  words=()
  for ((i = 0; i <= COMP_CWORD; i++)); do
    trimmed=${rest#"${rest%%[![:blank:]]*}"}
    word=${COMP_WORDS[i]}
    ((i == COMP_CWORD)) && word=$trimmed
    if ((${#words[@]} > 0)) && [[ $trimmed == "$rest" ]]; then
      words[${#words[@]} - 1]+=$word
    else
      words+=("$word")
    fi
    rest=${trimmed#"$word"}
  done
}

# The candidates on standard input that begin with $cur, behind $head.
_PROGRAM__offer() {
  local candidate means
  while IFS=$'\t' read -r candidate means; do
    [[ $candidate == "$cur"* ]] && COMPREPLY+=("$head$candidate")
  done
}

# The folders, and the files with one of these extensions, or all.
_PROGRAM__files() {
  local name extension
  compopt -o filenames 2>/dev/null
  cur=${cur#[\"\']}
  cur=${cur//\\/}
  while IFS= read -r name; do
    extension=${name##*.}
    if (($# == 0)) || [[ -d ${name/#~\//"$HOME"/} || " $* " == *" ${extension,,} "* ]]; then
      COMPREPLY+=("$head$name")
    fi
  done < <(compgen -f -- "$cur")
}

# Moves what $cur begins with to $head.
_PROGRAM__behind() {
  head+=$1
  cur=${cur#"$1"}
}

_PROGRAM__machines() {
  case $cur in
    serial:* | replay:*)
      _PROGRAM__behind "${cur%%:*}:"
      _PROGRAM__files
      ;;
    simulated,*pack=* | simulated,*store=*)
      _PROGRAM__behind "${cur%"${cur##*=}"}"
      _PROGRAM__files
      ;;
    simulated,*)
      _PROGRAM__behind "${cur%"${cur##*,}"}"
      _PROGRAM__offer < <(_PROGRAM__machine keys)
      ;;
    *) _PROGRAM__offer < <(_PROGRAM__machine forms) ;;
  esac
}

# What may stand there: a kind and its words.
_PROGRAM__kind() {
  case $1 in
    word) _PROGRAM__offer < <(printf '%s\n' "${@:2}") ;;
    file) _PROGRAM__files "${@:2}" ;;
    folder)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -P "$head" -d -- "$cur")
      ;;
    machine) _PROGRAM__machines ;;
    command) _PROGRAM__offer < <(_PROGRAM__commands "${plain[*]:used}") ;;
  esac
}

# What option $1 takes.
_PROGRAM__value() {
  local kind
  mapfile -t kind < <(_PROGRAM__takes "$command $1" || _PROGRAM__takes " $1")
  _PROGRAM__kind "${kind[@]}"
}

# What stands next among the words that are no options.
_PROGRAM__operands() {
  local kind
  mapfile -t kind < <(_PROGRAM__operand "$command $((${#plain[@]} - used + 1))" ||
    _PROGRAM__operand "$command +")
  _PROGRAM__kind "${kind[@]}"
}

# The words before the last: those that are no options, the command among them, and an option whose
# value comes next.
_PROGRAM__read() {
  local word
  for word in "${words[@]:1:${#words[@]}-2}"; do
    if [[ -n $option ]]; then
      option=
    elif [[ -z $ended && $word == -- ]]; then
      ended=1
    elif [[ -z $ended && $word == -* ]]; then
      _PROGRAM__takes " $word" >/dev/null && option=$word
    else
      plain+=("$word")
    fi
  done
  for used in 2 1; do
    command=${plain[*]:0:used}
    ((${#plain[@]} >= used)) && _PROGRAM__options "$command" >/dev/null && return
  done
  command=
  used=0
}

# Readline puts the candidate in place of what stands behind the last = or : only.
_PROGRAM__cut() {
  local breaks=${COMP_WORDBREAKS//[^=:]/} whole=${words[${#words[@]} - 1]}
  [[ -n $breaks ]] && COMPREPLY=("${COMPREPLY[@]#"${whole%"${whole##*["$breaks"]}"}"}")
  [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *[:=,] ]] && compopt -o nospace 2>/dev/null
  return 0
}

_PROGRAM() {
  local words cur head= plain=() command= used=0 option= ended= IFS=$' \t\n'
  COMPREPLY=()
  _PROGRAM__words
  cur=${words[${#words[@]} - 1]}
  _PROGRAM__read
  if [[ -n $option ]]; then
    _PROGRAM__value "$option"
  elif [[ -z $ended && $cur == --*=* ]]; then
    option=${cur%%=*}
    _PROGRAM__behind "$option="
    _PROGRAM__value "$option"
  elif [[ -z $ended && $cur == -* ]]; then
    _PROGRAM__offer < <([[ -n $command ]] && _PROGRAM__options "$command"; _PROGRAM__options '')
  elif [[ -z $command ]] && _PROGRAM__commands '' >/dev/null; then
    _PROGRAM__offer < <(_PROGRAM__commands "${plain[*]}")
  else
    _PROGRAM__operands
  fi
  ((${#COMPREPLY[@]} == 0)) || _PROGRAM__cut
}

complete -F _PROGRAM PROGRAM
)SCRIPT";

}  // namespace

std::string BashCompletion(const ProgramLine& program) {
  return ForProgram(
      "# What PROGRAM takes, for bash.\n" + CaseFunctions(CompletionTables(program)) + kEngine,
      program);
}

}  // namespace morvane::pages
