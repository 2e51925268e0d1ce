#!/usr/bin/env python3
"""Completes lines in bash, zsh and fish as a user does: completions_test.py PAGES SHELL.

PAGES has the folders bash, zsh and fish. What must come is written here by hand.
"""
import os
import pty
import re
import shutil
import subprocess
import sys
import tempfile
import threading

SETS = {'pbn', 'bri', 'dge', 'dup', 'all', 'bre', 'csv'}
FILES = ['a.pbn', 'b.PBN', 'c.pkr', 'd.txt', 'e.png', 'f.adc', 'two words.pbn', 'sets/x.pbn']
COMMON = {'--data', '--settings', '--machine', '--trace', '--trace-without-hands', '--yes',
          '--overwrite', '--help', '--version'}
FORMS = {'usb', 'usb:', 'serial:', 'simulated', 'simulated,', 'replay:'}

# The line up to the cursor, and all that may stand there now.
CASES = [
    ('morvane-cli gen', {'generate'}),
    ('morvane-cli po', {'poker'}),
    ('morvane-cli poker ', {'new', 'show', 'deal', 'read', 'print'}),
    ('morvane-cli poker s', {'show'}),
    ('morvane-cli poker show --', COMMON | {'--deal'}),
    ('morvane-cli sort --', COMMON | {'--auto'}),
    ('morvane-cli --', COMMON),
    ('morvane-cli --yes --machine usb maintain w', {'watch'}),
    ('morvane-cli maintain watch --po', {'--polls'}),
    ('morvane-cli --trace=t.txt poker pr', {'print'}),
    ('morvane-cli --board 7 sh', {'show'}),
    ('morvane-cli convert a.pbn sets --to ', SETS),
    ('morvane-cli convert --to=b a.pbn', None),
    ('morvane-cli convert a.pbn --to=b', {'--to=bri', '--to=bre'}),
    ('morvane-cli deal a.pbn --to ', set()),
    ('morvane-cli print a.pbn o.pdf --paper ', {'a4', 'letter'}),
    ('morvane-cli print a.pbn o.pdf --national ', set('0123456')),
    ('morvane-cli generate --history o', {'on', 'off'}),
    ('morvane-cli help ', None),
    ('morvane-cli help gen', {'generate'}),
    ('morvane-cli help poker ', {'new', 'show', 'deal', 'read', 'print'}),
    ('morvane-cli show ', {'a.pbn', 'b.PBN', 'two words.pbn', 'sets/'}),
    ('morvane-cli show sets/', {'sets/x.pbn'}),
    ('morvane-cli show two', {'two words.pbn'}),
    ('morvane-cli show a.pbn ', set()),
    ('morvane-cli poker show ', {'c.pkr', 'sets/'}),
    ('morvane-cli convert a.pbn b', {'b.PBN'}),
    ('morvane-cli --board 3 poker show c', {'c.pkr'}),
    ('morvane-cli --data ', {'sets/'}),
    ('morvane-cli --settings d', {'d.txt'}),
    ('morvane-cli --machine ', FORMS),
    ('morvane-cli --machine sim', {'simulated', 'simulated,'}),
    ('morvane-cli --machine simulated,fi', {'simulated,firmware='}),
    ('morvane-cli --machine simulated,speed=0,bo',
     {'simulated,speed=0,boot=', 'simulated,speed=0,board=', 'simulated,speed=0,board-switch='}),
    ('morvane-cli --machine=simulated,speed=0,no', {'--machine=simulated,speed=0,noise='}),
    ('morvane-cli --machine replay:d', {'replay:d.txt'}),
    ('morvane-cli --machine serial:sets/', {'serial:sets/x.pbn'}),
    ('morvane-cli --machine simulated,speed=0,pack=a', {'simulated,speed=0,pack=a.pbn'}),
    ('morvane-cli show -- --', set()),
    ('morvane-cli maintain parameters --from d', {'d.txt'}),
    ('morvane --', COMMON - {'--yes', '--overwrite'}),
    ('morvane ', {'a.pbn', 'b.PBN', 'f.adc', 'two words.pbn', 'sets/'}),
    ('morvane --machine ', FORMS),
    ('morvane-machine --', {'--machine', '--pace', '--link', '--trace', '--trace-without-hands',
                            '--help', '--version'}),
    ('morvane-machine --pace ', {'wire', 'fast'}),
    ('morvane-machine --pace fast --machine ', {'simulated', 'simulated,'}),
    ('morvane-machine ', set()),
    ('morvane --machine s', {'serial:', 'simulated', 'simulated,'}),
]

WORD_BREAKS = '=:'


def readline_words(line):
    """The words as readline cuts them for a completion function."""
    words = re.findall(r'[=:]+|(?:\\.|[^\s=:\\])+', line)
    if re.search(r'(?<!\\)\s$', line):
        words.append('')
    return words


def standing_line(line, reply):
    """What the line's last word becomes: readline puts the reply behind the last = or :."""
    word = re.split(r'(?<!\\)\s', line)[-1]
    kept = max(word.rfind('='), word.rfind(':')) + 1
    return word[:kept] + reply


def folder_marked(names, behind=''):
    """A folder with a slash, as the shell shows it."""
    return {name + '/' if os.path.isdir(re.sub(r'^.*[=:]', '', name)) and not name.endswith('/')
            else name for name in names}


class Bash:
    def __init__(self, pages, helpers):
        self.start = 'source /usr/share/bash-completion/bash_completion\n' if helpers else ''
        # All three, which must not take each other's names.
        self.start += f'for script in "{pages}"/bash/*; do source "$script"; done\n'

    def complete(self, line):
        words = readline_words(line)
        script = self.start + '''
COMP_LINE=$1 COMP_POINT=${#1} COMP_WORDS=("${@:2}") COMP_CWORD=$(($# - 2))
function=$(complete -p "$2" | sed 's/.*-F \\([^ ]*\\).*/\\1/')
"$function" "$2"
((${#COMPREPLY[@]} == 0)) || printf '%s\\n' "${COMPREPLY[@]}"
'''
        result = subprocess.run(['bash', '--norc', '-c', script, 'bash', line, *words],
                                capture_output=True, text=True, check=False)
        if result.stderr:
            raise AssertionError('bash says: ' + result.stderr)
        return {standing_line(line, reply) for reply in result.stdout.splitlines()}


class Fish:
    def __init__(self, pages):
        self.pages = pages

    def complete(self, line):
        script = f'for script in "{self.pages}"/fish/*; source $script; end; complete -C $argv[1]'
        result = subprocess.run(['fish', '--no-config', '-c', script, line], capture_output=True,
                                text=True, check=False)
        if result.stderr:
            raise AssertionError('fish says: ' + result.stderr)
        return {reply.split('\t')[0] for reply in result.stdout.splitlines()}


ZSHRC = r'''
unset HISTFILE
PS1= RPS1=
fpath=("$PAGES/zsh" $fpath)
autoload -U compinit
compinit -u -d "$ZDOTDIR/dump"
zstyle ':completion:*' completer _complete
compadd() {
  if [[ " ${@[1,(i)(-|--)]}" == *\ -[a-zA-Z12]#[OAD]\ * ]]; then
    builtin compadd "$@"
    return
  fi
  local -a hits
  builtin compadd -A hits "$@"
  local -a shown before
  zparseopts -E -a shown p:=before
  print -rl -- "$IPREFIX$before[2]"$^hits >>"$ZDOTDIR/hits"
  builtin compadd "$@"
}
tell() {
  : >"$ZDOTDIR/hits"
  BUFFER=$(<"$ZDOTDIR/line") CURSOR=${#BUFFER}
  zle complete-word
  BUFFER=
  print done >"$ZDOTDIR/done"
}
zle -N tell
bindkey '^I' tell
bindkey '^M' tell
print ready >"$ZDOTDIR/done"
'''


class Zsh:
    """An interactive one on a terminal of its own, which notes what it would have offered."""

    def __init__(self, pages):
        self.folder = tempfile.mkdtemp()
        with open(self.folder + '/.zshrc', 'w', encoding='utf-8') as file:
            file.write(ZSHRC)
        os.mkfifo(self.folder + '/done')
        process, self.terminal = pty.fork()
        if process == 0:
            os.environ.update(ZDOTDIR=self.folder, PAGES=pages, TERM='dumb')
            os.execlp('zsh', 'zsh', '-o', 'no_global_rcs', '-i')
        threading.Thread(target=self.drain, daemon=True).start()
        self.wait()

    def drain(self):
        """What it shows is not looked at, and must not hold it up."""
        while os.read(self.terminal, 4096):
            pass

    def wait(self):
        with open(self.folder + '/done', encoding='utf-8') as file:
            file.read()

    def complete(self, line):
        # A substitution loses line ends only, so that the blank at the end stays.
        with open(self.folder + '/line', 'w', encoding='utf-8') as file:
            file.write(line)
        os.write(self.terminal, b'\t')
        self.wait()
        with open(self.folder + '/hits', encoding='utf-8') as file:
            return {hit.replace('\\', '') for hit in file.read().splitlines() if hit}


SHELLS = {'bash': lambda pages: Bash(pages, False), 'bash-helpers': lambda pages: Bash(pages, True),
          'zsh': Zsh, 'fish': Fish}


def expected_of(line, expected):
    if expected is not None:
        return expected
    if line == 'morvane-cli help ':
        return {'generate', 'convert', 'show', 'stats', 'analyze', 'print', 'text', 'deal', 'read',
                'sort', 'poker', 'maintain', 'service-file', 'firmware-file', 'boot-c', 'txt-hex',
                'history', 'audit', 'help'}
    return {'a.pbn'}


def main():
    pages, name = os.path.abspath(sys.argv[1]), sys.argv[2]
    if shutil.which(name.split('-')[0]) is None:
        sys.exit(f'{name.split("-")[0]} is not installed')
    if name == 'bash-helpers' and not os.path.exists('/usr/share/bash-completion/bash_completion'):
        sys.exit('the package bash-completion is not installed')
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        os.mkdir('sets')
        for file in FILES:
            open(file, 'w', encoding='utf-8').close()
        shell = SHELLS[name](pages)
        for line, expected in CASES:
            wanted = expected_of(line, expected)
            found = folder_marked(shell.complete(line))
            if found != wanted:
                faults += 1
                print(f'{line!r}\n  wanted {sorted(wanted)}\n  found  {sorted(found)}')
        os.chdir('/')
    sys.exit(f'{faults} of {len(CASES)} lines' if faults else 0)


if __name__ == '__main__':
    main()
