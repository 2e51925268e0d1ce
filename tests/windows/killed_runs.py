"""Runs of the Windows program that are killed, and what they leave."""

import dataclasses
import random
import subprocess
import time

import kept_promises
import systems
from kept_promises import State, hold

BOARDS = 16
LOOKS_A_SECOND = 1000


@dataclasses.dataclass
class Figures:
    before: int = 0        # killed before it had written anything
    during: int = 0        # while it worked on the files
    after: int = 0         # it had ended
    replaced: int = 0      # of the killed, the board file was the new one
    grown: int = 0         # the history had its entry
    cut_lines: int = 0     # the log ended within a line, which the next start ended
    left: int = 0          # a file stood beside, which the next run took away

    def add(self, other):
        for field in dataclasses.fields(self):
            setattr(self, field.name, getattr(self, field.name) + getattr(other, field.name))


class Killing:
    """One folder in which program after program is killed and followed by one that is not."""

    def __init__(self, folder, seed):
        self.folder, self.chance, self.figures = folder, random.Random(seed), Figures()
        folder.mkdir()
        self.prepare()
        self.measure()

    def prepare(self):
        """Two sets, and what the board file looks like with either."""
        for name in ('a.pbn', 'b.pbn'):
            self.whole('generate', name, '--last', BOARDS)
        self.wholes = {}
        for name in ('a.pbn', 'b.pbn'):
            self.save(name)
            self.wholes[name] = State(self.folder).set
        self.make()
        hold(self.wholes['a.pbn'] != self.wholes['b.pbn'], 'both sets are the same')

    def whole(self, *words):
        status, _, err = systems.WINDOWS.run(self.folder, '--yes', '--overwrite', *words)
        hold(status == 0, f'{words}: {status} {err[-300:]!r}')

    def save(self, name):
        self.whole(*self.saving(name))

    def make(self):
        self.whole(*self.making())

    @staticmethod
    def saving(name):
        return 'convert', name, 'set.pbn'

    @staticmethod
    def making():
        return 'generate', 'made.pbn', '--last', BOARDS, '--history', 'on'

    def measure(self):
        """How long a run takes, and when it first writes; how much an entry adds to the history."""
        self.takes, self.begins, sizes = {}, {}, set()
        for words in (self.saving('a.pbn'), self.making()):
            old = State(self.folder)
            began = time.monotonic()
            process = self.start(words)
            self.wait_for_log(process, len(old.log))
            self.begins[words[0]] = time.monotonic() - began
            hold(process.wait(systems.PATIENCE) == 0, 'a run that is measured failed')
            self.takes[words[0]] = time.monotonic() - began
            sizes.add(len(State(self.folder).history) - len(old.history))
        hold(all(size > 0 for size in sizes), 'the history does not grow')
        self.entries = sizes

    def start(self, words):
        return subprocess.Popen(systems.WINDOWS.command(*systems.WHERE, '--yes', '--overwrite', *words), cwd=self.folder,
                                env=systems.AROUND, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)

    def wait_for_log(self, process, size):
        log = kept_promises.log_of(self.folder)
        while process.poll() is None and log.stat().st_size == size:
            time.sleep(1 / LOOKS_A_SECOND)

    # ---- One kill

    def kill_once(self, part):
        """At this part of a run; each third kill is at a part of its run, the others of its work on the files."""
        words = self.chance.choice([self.saving('a.pbn'), self.saving('b.pbn'), self.making()])
        old = State(self.folder)
        ended = self.killed(words, part, len(old.log))
        self.look(old, ended)
        self.follow(words)

    def killed(self, words, part, log_size):
        """Whether it had ended by itself."""
        process = self.start(words)
        if self.chance.randrange(3) == 0:
            time.sleep(part * self.takes[words[0]])
        else:
            self.wait_for_log(process, log_size)
            time.sleep(part * (self.takes[words[0]] - self.begins[words[0]]))
        ended = process.poll() is not None
        process.kill()
        process.wait(systems.PATIENCE)
        return ended

    def look(self, old, ended):
        """What stands there right behind the kill."""
        new = State(self.folder)
        hold(new.set in self.wholes.values(), 'set.pbn is neither the old nor the new one')
        self.look_at_made(old, new)
        kept_promises.settings_are_whole(new.settings)
        grew = kept_promises.history_grew_whole(old.history, new.history, self.entries)
        self.count(old, new, ended, grew)

    @staticmethod
    def look_at_made(old, new):
        if new.made != old.made:
            deals = kept_promises.deals_of(new.made)
            hold(len(deals) == BOARDS and deals == kept_promises.deals_logged(new.log), 'made.pbn is not what was logged')

    def count(self, old, new, ended, grew):
        figures = self.figures
        began = kept_promises.log_grew(old.log, new.log)
        figures.after += ended
        figures.during += began and not ended
        figures.before += not began and not ended
        figures.replaced += not ended and (new.set, new.made) != (old.set, old.made)
        figures.grown += not ended and grew
        figures.cut_lines += not new.log.endswith(b'\r\n')
        figures.left += any(any(self.folder.rglob(pattern)) for pattern in kept_promises.BESIDE)

    def follow(self, words):
        """The next run finds the locks free, works, mends and clears."""
        old = State(self.folder)
        self.whole(*words)
        new = State(self.folder)
        hold(kept_promises.log_grew(old.log, new.log), 'log: the next run is not in it')
        hold(kept_promises.history_grew_whole(old.history, new.history, self.entries), 'history: the next run is not in it')
        kept_promises.log_is_mended(new.log)
        kept_promises.nothing_beside(self.folder)
        self.look_at_made(old, new)
        expected = self.wholes.get(words[1], old.set)
        hold(new.set == expected, 'set.pbn is not what the next run saved')

    # ---- Behind all

    def prove(self):
        """The log holds every set as it was dealt, and both systems say so."""
        log = kept_promises.log_of(self.folder).relative_to(self.folder)
        for system in systems.BOTH:
            status, out, _ = system.run(self.folder, 'audit', log)
            hold(status == 0, f'audit by {system.name}: {out[-300:]!r}')
