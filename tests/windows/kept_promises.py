"""What must hold of a folder in which a program was killed: each check is given what stood there before."""

import re

RECORD = 16
HEX_POOL = re.compile(rb'(?m)^Seedm = [0-9A-F]{128}\r?$')
SETTING_LINE = re.compile(rb'\[[^\]]+\]|[^=]+ = .*|')
BESIDE = ('morvane.new.*', '*.new')


class Broken(Exception):
    """A promise that was not kept."""


def hold(kept, words):
    if not kept:
        raise Broken(words)


def content(path):
    return path.read_bytes() if path.exists() else b''


def log_of(folder):
    return next((folder / 'data').glob('Log_*.txt'))


class State:
    """All that the program writes, read at once."""

    def __init__(self, folder):
        self.set, self.made = content(folder / 'set.pbn'), content(folder / 'made.pbn')
        self.history, self.settings = content(folder / 'data/history1.dat'), content(folder / 'settings.ini')
        self.log = content(log_of(folder))


def from_north(first, hands):
    """A deal in PBN begins with any hand."""
    turn = -b'NESW'.index(first) % 4
    return hands[turn:] + hands[:turn]


def deals_of(text):
    return [from_north(first, hands.split()) for first, hands in re.findall(rb'\[Deal "(.):([^"]*)"\]', text)]


def deals_logged(log):
    """Of the last set that was generated."""
    records = re.findall(rb'(?m)^   \d{3} : (.*)\r$', log.rpartition(b'Generate:')[2])
    return [record.split()[:4] for record in records]


def history_grew_whole(old, new, entries):
    """Nothing, or an entry that the program would write unkilled."""
    if new == old:
        return False
    hold(len(new) % RECORD == 0, 'history: no whole records')
    hold(new[:len(old) - RECORD] == old[:-RECORD] and new[-RECORD:] == old[-RECORD:], 'history: old records changed')
    grown = new[len(old) - RECORD:-RECORD]
    hold(len(grown) in entries, f'history: {len(grown)} bytes more are no entry')
    return True


def log_grew(old, new):
    hold(new.startswith(old), 'log: old lines changed')
    return new != old


def settings_are_whole(settings):
    lines = settings.splitlines()
    hold(lines and all(SETTING_LINE.fullmatch(line) for line in lines), f'settings: {settings[:80]!r}')
    hold(HEX_POOL.search(settings), 'settings: the pool of random bits is lost')


def log_is_mended(log):
    """Every start stands on a line of its own, and the last line is whole."""
    hold(log.endswith(b'\r\n'), 'log: the last line is not whole after another run')
    hold(log.count(b'Start 20') == len(re.findall(rb'(?m)^Start 20', log)), 'log: a start behind a line cut short')


def nothing_beside(folder):
    left = [path.name for pattern in BESIDE for path in folder.rglob(pattern)]
    hold(not left, f'left beside: {left}')
