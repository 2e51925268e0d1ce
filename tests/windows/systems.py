"""The program on both systems: each runs in a folder of its own, where the same files lie at the same places."""

import os
import pathlib
import shutil
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
RUN = ROOT / 'tools/windows/run'
WINDOWS_PROGRAMS = pathlib.Path(os.environ.get('MORVANE_WINDOWS_PROGRAMS', ROOT / 'build/windows/apps'))
LINUX_PROGRAMS = pathlib.Path(os.environ.get('MORVANE_PROGRAMS', ROOT / 'build/dev/apps'))
MEMORY = '/dev/shm'
# Names and words that are not ASCII, and no zone that moves.
AROUND = dict(os.environ, LC_ALL='C.UTF-8', TZ='UTC')
WHERE = ['--data', 'data', '--settings', 'settings.ini']
PATIENCE = 120


class System:
    """One of the two, with what starts its programs."""

    def __init__(self, name, starter, programs, ending):
        self.name, self.starter, self.programs, self.ending = name, starter, programs, ending

    def command(self, *words, program='morvane-cli'):
        return [*self.starter, str(self.programs / (program + self.ending)), *map(str, words)]

    def missing(self):
        return [word for word in self.command()[-1:] if not os.path.exists(word)]

    def run(self, folder, *words):
        """As it stands, without a mask: status, standard output, standard error."""
        ended = subprocess.run(self.command(*WHERE, *words), cwd=folder, env=AROUND, stdin=subprocess.DEVNULL,
                               capture_output=True, timeout=PATIENCE)
        return ended.returncode, ended.stdout, ended.stderr


LINUX = System('linux', [], LINUX_PROGRAMS, '')
WINDOWS = System('windows', [str(RUN)], WINDOWS_PROGRAMS, '.exe')
BOTH = [LINUX, WINDOWS]


def require_programs():
    """Says what is to be built first."""
    missing = [path for system in BOTH for path in system.missing()]
    if missing:
        raise SystemExit('Not there: ' + ', '.join(missing) +
                         '\nBuild them: tools/build dev morvane-cli DDS_1; tools/build windows morvane-cli DDS_1')


class KeptServer:
    """Wine's server stays between the programs, so that each starts at once."""

    def __enter__(self):
        self.process = subprocess.Popen(WINDOWS.command('--version'), env=AROUND, stdout=subprocess.DEVNULL)
        self.process.wait(PATIENCE)
        self.kept = subprocess.Popen([str(RUN), 'cmd.exe', '/c', 'pause'], env=AROUND, stdin=subprocess.PIPE,
                                     stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        self.kept.stdin.close()
        self.kept.wait(PATIENCE)


def memory_folder():
    """A folder that costs no disk, gone at its `with`'s end."""
    return tempfile.TemporaryDirectory(prefix='morvane-windows-', dir=MEMORY if os.path.isdir(MEMORY) else None)


def copy_files(files, folder, name=lambda path: path.name):
    """The names under which they lie there."""
    folder.mkdir(parents=True, exist_ok=True)
    for path in files:
        shutil.copyfile(path, folder / name(path))
    return [name(path) for path in files]
