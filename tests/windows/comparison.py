"""What the two systems did with the same commands, held against each other."""

import dataclasses
import difflib
import shutil

import masks
import systems

SHOWN = 12


def words_of(data):
    return data.decode('utf-8', 'backslashreplace').splitlines()


def first_difference(linux, windows):
    """The first lines that differ, as a diff has them."""
    lines = list(difflib.unified_diff(words_of(linux), words_of(windows), 'linux', 'windows', lineterm='', n=0))
    if not lines:
        lines = [f'{len(linux)} and {len(windows)} bytes, whose lines end otherwise']
    return '\n'.join('      ' + line[:200] for line in lines[:SHOWN])


@dataclasses.dataclass
class Figures:
    """What was compared; a part that compared nothing is a failure."""
    runs: int = 0
    failed_runs: int = 0
    files: int = 0
    bytes: int = 0
    differences: list = dataclasses.field(default_factory=list)

    def add(self, other):
        self.runs += other.runs
        self.failed_runs += other.failed_runs
        self.files += other.files
        self.bytes += other.bytes
        self.differences += other.differences


class Pair:
    """Two folders with the same content, each for one system."""

    def __init__(self, folder):
        self.folders = {system: folder / system.name for system in systems.BOTH}
        for path in self.folders.values():
            path.mkdir(parents=True)
        self.figures = Figures()

    def put(self, files, name=lambda path: path.name, within='.'):
        for folder in self.folders.values():
            names = systems.copy_files(files, folder / within, name)
        return names

    def write(self, name, content):
        for folder in self.folders.values():
            (folder / name).parent.mkdir(parents=True, exist_ok=True)
            (folder / name).write_bytes(content)
        return name

    def make_folder(self, name):
        for folder in self.folders.values():
            (folder / name).mkdir(parents=True)
        return name

    def hand_over(self, maker):
        """What one has made, to the other."""
        for system, folder in self.folders.items():
            if system is not maker:
                shutil.copytree(self.folders[maker], folder, dirs_exist_ok=True)

    def run(self, *words):
        """Both run it; what they print and how they end must be the same. The status is given back."""
        linux, windows = (self.outcome(system, words) for system in systems.BOTH)
        self.figures.runs += 1
        self.figures.failed_runs += linux[0] != 0
        for what, one, other in zip(('status', 'output', 'messages'), linux, windows):
            self.hold(f'{what} of: {" ".join(map(str, words))}', one, other)
        return linux[0]

    def outcome(self, system, words):
        status, out, err = system.run(self.folders[system], *words)
        return status, *(masks.of_printed(text, self.folders[system]) for text in (out, err))

    def hold(self, what, linux, windows):
        if linux == windows:
            return
        if not isinstance(linux, bytes):
            linux, windows = str(linux).encode(), str(windows).encode()
        self.figures.differences.append(f'{what}\n{first_difference(linux, windows)}')

    def files_of(self, system):
        folder = self.folders[system]
        return {path.relative_to(folder).as_posix(): path for path in folder.rglob('*') if path.is_file()}

    def compare_files(self):
        """All that lies in the folders now, by its names and its bytes."""
        linux, windows = (self.files_of(system) for system in systems.BOTH)
        self.hold('names of the files', '\n'.join(sorted(linux)).encode(), '\n'.join(sorted(windows)).encode())
        for name in sorted(linux.keys() & windows.keys()):
            self.compare_file(name, linux[name], windows[name])

    def compare_file(self, name, linux, windows):
        one = masks.of_file(linux, self.folders[systems.LINUX])
        self.figures.files += 1
        self.figures.bytes += len(one)
        self.hold(f'file {name}', one, masks.of_file(windows, self.folders[systems.WINDOWS]))
