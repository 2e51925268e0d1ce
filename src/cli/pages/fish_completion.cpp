#include "cli/pages/completion_tables.h"
#include "cli/pages/completions.h"
#include "cli/pages/shell_table.h"

namespace morvane::pages {
namespace {

constexpr const char* kEngine = R"SCRIPT(
# The lines on standard input behind $argv[1].
function _PROGRAM__offer
  while read --local line
    printf '%s%s\n' "$argv[1]" "$line"
  end
end

# Behind $argv[1] the folders, and the files with one of the extensions behind $argv[2], or all, whose
# name begins with that.
function _PROGRAM__files
  for line in (complete -C "'' $argv[2]")
    set -l name (string split -f 1 \t -- $line)
    set -l extension (string lower -- (string replace -r '.*\.' '' -- $name))
    if not set -q argv[3]; or string match -q '*/' -- $name; or contains -- $extension $argv[3..]
      printf '%s%s\n' "$argv[1]" "$name"
    end
  end
end

function _PROGRAM__folders
  for line in (complete -C "'' $argv[2]")
    set -l name (string split -f 1 \t -- $line)
    string match -q '*/' -- $name; and printf '%s%s\n' "$argv[1]" "$name"
  end
end

function _PROGRAM__machines
  set -l parts (string match -r '^((?:serial|replay):|simulated,(?:.*,)?(?:pack|store)=)(.*)$' -- $argv[2])
  if set -q parts[1]
    _PROGRAM__files "$argv[1]$parts[2]" "$parts[3]"
  else if string match -q 'simulated,*' -- $argv[2]
    _PROGRAM__machine keys | _PROGRAM__offer $argv[1](string replace -r '[^,]*$' '' -- $argv[2])
  else
    _PROGRAM__machine forms | _PROGRAM__offer "$argv[1]"
  end
end

# What may stand behind $argv[1] for $argv[2], which has begun: a kind and its words.
function _PROGRAM__kind
  switch "$argv[3]"
    case word
      printf '%s\n' $argv[4..] | _PROGRAM__offer "$argv[1]"
    case file
      _PROGRAM__files "$argv[1]" "$argv[2]" $argv[4..]
    case folder
      _PROGRAM__folders "$argv[1]" "$argv[2]"
    case machine
      _PROGRAM__machines "$argv[1]" "$argv[2]"
    case command
      _PROGRAM__commands "$argv[4..]"
  end
end

# What option $argv[3] of command $argv[4] takes.
function _PROGRAM__value
  set -l kind (_PROGRAM__takes "$argv[4] $argv[3]"; or _PROGRAM__takes " $argv[3]")
  _PROGRAM__kind "$argv[1]" "$argv[2]" $kind
end

# What stands next among the words that are no options, of which $argv[3..] are the command's.
function _PROGRAM__operands
  set -l behind $argv[3..]
  set -l kind (_PROGRAM__operand "$argv[1] "(math (count $behind) + 1); or _PROGRAM__operand "$argv[1] +")
  if test "$kind[1]" = command
    _PROGRAM__kind '' "$argv[2]" command $behind
  else
    _PROGRAM__kind '' "$argv[2]" $kind
  end
end

function _PROGRAM
  set -l current (commandline -ct)
  set -l words (commandline -opc)
  set -l plain
  set -l option ''
  set -l ended ''
  # Those that are no options, the command among them, and an option whose value comes next.
  for word in $words[2..]
    if test -n "$option"
      set option ''
    else if test -z "$ended" -a "$word" = --
      set ended 1
    else if test -z "$ended"; and string match -q -- '-*' $word
      _PROGRAM__takes " $word" >/dev/null; and set option $word
    else
      set -a plain $word
    end
  end
  set -l command ''
  set -l behind $plain
  if set -q plain[2]; and _PROGRAM__options "$plain[1..2]" >/dev/null
    set command "$plain[1..2]"
    set behind $plain[3..]
  else if set -q plain[1]; and _PROGRAM__options "$plain[1]" >/dev/null
    set command $plain[1]
    set behind $plain[2..]
  end
  if test -n "$option"
    _PROGRAM__value '' "$current" $option "$command"
  else if test -z "$ended"; and string match -q -- '--*=*' $current
    set -l parts (string split -m 1 = -- $current)
    _PROGRAM__value "$parts[1]=" "$parts[2]" $parts[1] "$command"
  else if test -z "$ended"; and string match -q -- '-*' $current
    test -n "$command"; and _PROGRAM__options $command
    _PROGRAM__options ''
  else if test -z "$command"; and _PROGRAM__commands '' >/dev/null
    _PROGRAM__commands "$plain"
  else
    _PROGRAM__operands "$command" "$current" $behind
  end
end

complete -c PROGRAM -f -a '(_PROGRAM)'
)SCRIPT";

}  // namespace

std::string FishCompletion(const ProgramLine& program) {
  return ForProgram(
      "# What PROGRAM takes, for fish.\n" + SwitchFunctions(CompletionTables(program)) + kEngine,
      program);
}

}  // namespace morvane::pages
