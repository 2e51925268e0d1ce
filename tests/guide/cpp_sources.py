"""What the C++ sources show to the operator: found by reading calls, constants and tables in them. Whatever cannot be
resolved is an error, so that a new way of saying something is not passed over."""

import pathlib
import re

LITERAL = re.compile(r'(?:u8)?"((?:[^"\\]|\\.)*)"')
TOKEN = re.compile(r'(?:u8)?"(?:[^"\\]|\\.)*"|\'(?:[^\'\\]|\\.)+\'|//[^\n]*|/\*.*?\*/', re.S)

# They hand on what others give them.
DOORS = ('src/program/program.cpp', 'src/platform/qt/qt_ui.cpp', 'src/platform/ui.h')


class Unresolved(Exception):
    pass


def without_comments(text):
    return TOKEN.sub(lambda found: ' ' if found[0][0] == '/' else found[0], text)


def arguments(text, at):
    """The arguments of the bracket that opens at `at`."""
    parts, depth, start = [], 0, at + 1
    while at < len(text):
        if skipped := TOKEN.match(text, at):
            at = skipped.end()
            continue
        sign = text[at]
        depth += (sign in '([{') - (sign in ')]}')
        if depth == 0 or (depth == 1 and sign == ','):
            parts.append(text[start:at].strip())
            start = at + 1
        if depth == 0:
            return [part for part in parts if part]
        at += 1
    raise Unresolved('a bracket is not closed')


class Sources:
    """Every `.h` and `.cpp` below the folders, without comments."""

    def __init__(self, root, folders=('src', 'apps')):
        paths = [path for folder in folders for path in sorted((pathlib.Path(root) / folder).rglob('*'))]
        self.texts = {str(path.relative_to(root)): without_comments(path.read_text(encoding='utf-8'))
                      for path in paths if path.suffix in ('.h', '.cpp')}

    def said(self):
        """All literals of each file in one text, without the signs that only shape a box."""
        for text in self.texts.values():
            parts, end = [], None
            for found in LITERAL.finditer(text):
                whole = end is not None and not text[end:found.start()].strip()
                parts.append(('' if whole else ' ') + found[1])
                end = found.end()
            plain = re.sub(r'\\[rnt]', ' ', ''.join(parts))
            yield ' '.join(re.sub(r'\\(.)', r'\1', plain).split())

    def calls(self, name):
        """File, place and arguments of each call of a function; not what declares it."""
        for file, text in self.texts.items():
            for found in re.finditer(name + r'(?=\()', text):
                yield file, found.start(), arguments(text, found.end())

    def words(self, file, place, said):
        """All texts that an expression of a file can be."""
        said = re.sub(r'\s+', ' ', said)
        if LITERAL.match(said) and not re.sub(LITERAL, '', said).strip():
            return {''.join(LITERAL.findall(said))}
        for wrap in ('ToQt', 'std::string', 'QString', 'QString::fromUtf8'):
            if said.startswith(wrap + '(') and arguments(said, len(wrap)) == [said[len(wrap) + 1:-1].strip()]:
                return self.words(file, place, said[len(wrap) + 1:-1])
        if choice := re.fullmatch(r'[^?"]+ \? (.+?) : ([^:].*)', said):
            return self.words(file, place, choice[1]) | self.words(file, place, choice[2])
        if sum_ := re.fullmatch(r'((?:"[^"]*"|\w+\([\w:]+\)|[\w:]+)) \+ .*', said):
            return self.words(file, place, sum_[1])  # what follows is filled in
        if table := re.fullmatch(r'.*\bWords(?:Of)?\(.*\)\.(\w+)', said):
            return self.in_tables(table[1])
        if field := re.fullmatch(r'\w+(?:\.|->)(\w+)', said):
            return self.field(file, field[1])
        if re.fullmatch(r'[\w:]+', said):
            name = said.split('::')[-1]
            return self.local(file, place, name) or self.constant(file, name) or self.parameter(file, place, name)
        raise Unresolved(f'{file}: {said}')

    def constant(self, file, name):
        """Of its own file, else of its folder, else of all."""
        definition = re.compile(r'\b' + name + r'(?:\[\])?(?: =|\{)\s*((?:(?:u8)?"(?:[^"\\]|\\.)*"\s*)+)[;}]')
        folder = file.rsplit('/', 1)[0] + '/'
        for near in (file, folder, ''):
            found = {''.join(LITERAL.findall(match[1])) for where, text in self.texts.items()
                     if where.startswith(near) for match in definition.finditer(text)}
            if found:
                return found
        return set()

    def local(self, file, place, name):
        body = self.texts[file][:place].rpartition('\n}\n')[2]
        made = re.search(r'\bconst std::string ' + name + r'\((.*)\);', body)
        return self.words(file, place, made[1]) if made else set()

    def in_tables(self, name):
        """A field of the tables of words that kinds of work have, `...Words`, for each kind."""
        words = set()
        for text in self.texts.values():
            for struct in re.finditer(r'struct (\w+Words) \{([^{}]*)\}', text):
                fields = re.findall(r'(\w+);', struct[2])
                if name in fields:
                    words |= self.rows_of(struct[1], fields.index(name))
        if not words:
            raise Unresolved(f'no table of words has {name}')
        return words

    def rows_of(self, struct, index):
        rows = []
        for text in self.texts.values():
            for table in re.finditer(r'array<' + struct + r', \d+> \w+\{(?=\{)', text):
                rows += [arguments(row, 0) for row in arguments(text, table.end())]
            rows += [arguments(text, row.end()) for row in re.finditer(r'(?<!struct )\b' + struct + r'(?=\{)', text)]
        return {LITERAL.fullmatch(row[index])[1] for row in rows}

    def parameter(self, file, place, name):
        """What the callers of the function around a place give for its parameter."""
        heads = re.finditer(r'^[^\s#}/][^;{}]*?(\w+)(\((?:[^;{}]|\{\})*\))[^;{}()]*\{$', self.texts[file][:place], re.M)
        for head in reversed(list(heads)):
            names = [re.split(r'[\s*&]+', part.split('=')[0].strip())[-1] for part in arguments(head[2], 0)]
            if name in names:
                return self.given(head[1], names.index(name), len(names))
        raise Unresolved(f'{file}: {name}')

    def given(self, function, index, count):
        words = set()
        for file, place, given in self.calls(r'(?<![\w:~])(?:\w+::)?' + function):
            declares = any(re.search(r'^(?:const )?[\w:]+[&*]? \w+$', part) for part in given)
            if not declares and len(given) == count:
                words |= self.words(file, place, given[index])
        if not words:
            raise Unresolved(f'nobody calls {function}')
        return words

    def field(self, file, name):
        """What is put into a field: by its name, or by its place in what its struct is made of."""
        words = set()
        for struct in re.finditer(r'struct (\w+) \{([^{}]*)\}', self.texts[file]):
            fields = re.findall(r'(\w+)(?:\{\}| = [^;]*)?;', struct[2])
            if name in fields:
                words |= self.made(file, struct[1], fields.index(name))
        if words:
            return words
        for where, text in self.texts.items():
            for put in re.finditer(r'\.' + name + r' = ([^;,}]+)', text):
                words |= self.words(where, put.start(), put[1])
        if not words:
            raise Unresolved(f'{file}: nobody fills {name}')
        return words

    def made(self, file, struct, index):
        words, text = set(), self.texts[file]
        for found in re.finditer(r'\b' + struct + r'(?: \w+)?(?=\{)', text):
            given = arguments(text, found.end())
            if not text[:found.start()].endswith('struct ') and len(given) > index:
                words |= self.words(file, found.start(), given[index])
        return words


def captions(sources):
    """Of every message box, with the file that shows it; and the calls whose caption is not found."""
    words, unresolved = {}, []
    for file, place, given in sources.calls(r'\b(?:ShowMessage|ShowBeside|BoxBeside|MessageBox|Ask)'):
        if len(given) != 3 or re.match(r'\[|take$|[\w:& ]+[ &]\w+$', given[2]):
            continue  # a declaration, or a question to the machine
        if file in DOORS and given[2] == 'title':
            continue
        try:
            for word in sources.words(file, place, given[2]):
                words.setdefault(word, file)
        except Unresolved as what:
            unresolved.append(f'the caption of a box in {file} cannot be told: {what}')
    return words, unresolved


def titles(sources):
    """Of every window, without the program's name and what changes; and the calls that are not understood."""
    words, unresolved = {title: 'the tables of words' for title in sources.in_tables('Title')}, []
    for file, place, given in sources.calls(r'(?<![\w>])(?:\w+\.)?setWindowTitle'):
        if file in DOORS or re.search(r'Words\(\)\.Title|\.Title\(\)', given[0]):
            continue
        try:
            for word in sources.words(file, place, given[0]):
                words.setdefault(word.removeprefix('Morvane - ').removesuffix('[*]'), file)
        except Unresolved as what:
            unresolved.append(f'the title of a window in {file} cannot be told: {what}')
    return words, unresolved


def settings(sources):
    text = sources.texts['src/program/setting_keys.h']
    return re.findall(r'SettingKey \w+\{\w+, "([^"]+)"', text)


def preferences(sources):
    table = sources.texts['src/shell/preferences.h'].split('kSwitches{{')[1].split('}};')[0]
    return [' '.join(row[-1].split()) for row in (LITERAL.findall(part) for part in table.split('},')) if row]


def error_texts(sources):
    """Code to text."""
    rows = re.findall(r'\{(\d+), (\d+), \{"([^"]*)"', sources.texts['src/wire/machine_errors.cpp'])
    return {code: text.strip() for first, last, text in rows for code in range(int(first), int(last) + 1)}


def first_line(sources, message):
    """Of a text of the catalogue."""
    return re.search(message + r' =\s*"([^"\\]*)', sources.texts['src/model/messages.cpp'])[1].strip()


def commands(sources):
    found = [re.search(r'\bCommand k\w+Command\{\s*(?:\.Name = )?"([^"]+)"', text)
             for file, text in sources.texts.items() if file.startswith('src/cli/') and file.endswith('_command.cpp')]
    return [name[1] for name in found if name]
