#include "cli/pages/completion_tables.h"
#include "cli/pages/completions.h"
#include "cli/pages/shell_table.h"

namespace morvane::pages {
namespace {

constexpr const char* kEngine = R"SCRIPT(
# The candidates in the lines, with what they mean; those that go on have no blank behind them.
_PROGRAM__offer() {
  local line tab=$'\t' name
  local -a whole going
  for line in "${(@f)1}"; do
    name=${line%%$tab*}
    if [[ $name == *[:=,] ]]; then
      going+=("${name//:/\\:}:${line#*$tab}")
    else
      whole+=("${name//:/\\:}:${line#*$tab}")
    fi
  done
  _describe "${@:2}" whole -- going -S ''
}

# The files with one of these extensions, or all.
_PROGRAM__files() {
  if (($#)); then
    _files -g "*.(#i)(${(j:|:)@})(-.)"
  else
    _files
  fi
}

_PROGRAM__machines() {
  if compset -P '(serial|replay):'; then
    _files
  elif compset -P 'simulated,(*,|)(pack|store)='; then
    _files
  elif compset -P 'simulated,(*,|)'; then
    _PROGRAM__offer "$(_PROGRAM__machine keys)" key
  else
    _PROGRAM__offer "$(_PROGRAM__machine forms)" machine
  fi
}

# What may stand there: a kind and its words.
_PROGRAM__kind() {
  local kind=$1
  shift
  case $kind in
    word) compadd -- "$@" ;;
    file) _PROGRAM__files "$@" ;;
    folder) _files -/ ;;
    machine) _PROGRAM__machines ;;
    command) _PROGRAM__offer "$(_PROGRAM__commands "${plain[used + 1, -1]}")" command ;;
    *) _message value ;;
  esac
}

# What option $1 takes.
_PROGRAM__value() {
  _PROGRAM__kind "${(@f)$(_PROGRAM__takes "$command $1" || _PROGRAM__takes " $1")}"
}

# What stands next among the words that are no options.
_PROGRAM__operands() {
  local next=$((${#plain} - used + 1))
  _PROGRAM__kind "${(@f)$(_PROGRAM__operand "$command $next" || _PROGRAM__operand "$command +")}"
}

# The words before the last: those that are no options, the command among them, and an option whose
# value comes next.
_PROGRAM__read() {
  local word
  for word in "${(@Q)words[2, CURRENT - 1]}"; do
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
    command="${plain[1, used]}"
    (($#plain >= used)) && _PROGRAM__options "$command" >/dev/null && return
  done
  command=
  used=0
}

_PROGRAM() {
  local command= option= ended=
  local -i used=0
  local -a plain
  _PROGRAM__read
  if [[ -n $option ]]; then
    _PROGRAM__value "$option"
  elif [[ -z $ended && $PREFIX == --*=* ]]; then
    option=${PREFIX%%=*}
    compset -P '--[^=]##='
    _PROGRAM__value "$option"
  elif [[ -z $ended && $PREFIX == -* ]]; then
    _PROGRAM__offer "$([[ -n $command ]] && _PROGRAM__options "$command"; _PROGRAM__options '')" -o option
  elif [[ -z $command ]] && _PROGRAM__commands '' >/dev/null; then
    _PROGRAM__offer "$(_PROGRAM__commands "$plain")" command
  else
    _PROGRAM__operands
  fi
}

_PROGRAM "$@"
)SCRIPT";

}  // namespace

std::string ZshCompletion(const ProgramLine& program) {
  return ForProgram("#compdef PROGRAM\n# What PROGRAM takes, for zsh.\n" +
                        CaseFunctions(CompletionTables(program)) + kEngine,
                    program);
}

}  // namespace morvane::pages
