#!/usr/bin/env python3
"""guide_knows.py GUIDE ROOT: what the sources show and the guide does not tell. Windows, the captions of boxes, settings,
preferences, codes of the machine, commands, and pages that F1 would open in vain. And what the guide and the README tell
that is not so: options that a command has not, and words that no box says."""

import pathlib
import re
import sys

import cpp_sources
import guide_pages

# What is made by the build knows everything by itself; a person is to have told it.
MADE = ('command-reference.html', 'file-formats.html', 'machine-protocol.html')
UNKNOWN_CODE = 'Undefine Error'
# Codes of a wrong board in the slot, with the text of the catalogue that each shows.
BOARD_CODES = {64: 'Msg077', 65: 'Msg078'}
LAST_CODE = 240
REFERENCE = 'command-reference.html'
# Where the reference lists what stands with any command; these two it does not list.
EVERYWHERE, USAGE = 'Options of every command', {'--help', '--version'}
OPTION = re.compile(r'--[a-z][a-z-]*')
SAID = ('What it says', 'What the box says', 'What it asks or says')
QUOTED = re.compile(r'(?:^|(?<=[\s(]))"(.+?)"(?=[\s,.;:)]|$)')


def untold_titles(pages, sources):
    told = set().union(*(page.marked for page in pages))
    quoted = ' '.join(page.text for page in pages)
    for kind, (words, unresolved) in (('window', cpp_sources.titles(sources)), ('box', cpp_sources.captions(sources))):
        yield from unresolved
        for word, file in sorted(words.items()):
            names = {word, 'Morvane - ' + word}
            if not names & told and not any(f'"{name}"' in quoted for name in names):
                yield f'the {kind} "{word}" of {file} is not told'


def untold_settings(pages, sources):
    told = set().union(*(page.marked for page in pages if page.name == 'settings.html'))
    yield from (f'the setting {key} is not told' for key in cpp_sources.settings(sources) if key not in told)


def untold_preferences(pages, sources):
    told = ' '.join(page.text for page in pages)
    yield from (f'the preference "{words}" is not told' for words in cpp_sources.preferences(sources) if words not in told)


def codes_told(pages):
    """Code to text, by the rows that begin with a code or with the first and last of several."""
    told = {}
    for row in (row for page in pages if page.name == 'stops.html' for table in page.tables for row in table if len(row) > 1):
        for first, last in re.findall(r'(\d+)(?: to (\d+))?', row[0] if re.fullmatch(r'[\d ,to]+', row[0]) else ''):
            told.update({code: row[1] for code in range(int(first), int(last or first) + 1)})
    return told


def untold_codes(pages, sources):
    told, shown = codes_told(pages), cpp_sources.error_texts(sources)
    shown.update({code: cpp_sources.first_line(sources, message) for code, message in BOARD_CODES.items()})
    for code in range(1, LAST_CODE + 1):
        text = shown.get(code, UNKNOWN_CODE)
        if told.get(code) != text:
            yield f'the code {code}, "{text}", is told as {told.get(code)}'


def untold_commands(pages, sources):
    told = [line for page in pages for line in page.code]
    for name in cpp_sources.commands(sources):
        # `deal` is another one than `poker deal`.
        used = re.compile(r'(?:.*\bmorvane-cli (?:.* )?)?(?<!poker )(?<!maintain )' + name + r'(?: .*)?')
        if not any(used.fullmatch(line) for line in told):
            yield f'the command {name} is not told'


def help_in_vain(pages, sources):
    """Of the table of F1, `src/shell/help_pages.h`: a row names its page, or a constant that does."""
    known = {page.name.removesuffix('.html') for page in pages}
    table = sources.texts.get('src/shell/help_pages.h', '')
    constants = dict(re.findall(r'string_view (k\w+) = "([^"]*)"', table))
    for name, page in re.findall(r'(?:Window|Box)Page\{"([^"]+)",\s*"?([\w-]+)', table):
        if constants.get(page, page) not in known:
            yield f'F1 in {name} opens {constants.get(page, page)}, which is no page'


def options_of(reference):
    """Command to its options, by the headings of the reference."""
    return {name: set(OPTION.findall(' '.join(lines))) for name, lines in reference.code_below.items()}


def command_of(words, commands):
    """The command that stands first in a line, with as many words as it has."""
    for at in range(len(words)):
        for name in (' '.join(words[at:at + count]) for count in (2, 1)):
            if name in commands:
                return name
    return EVERYWHERE


def unknown_options(line, options):
    """Of what is run in a line, or of a line that begins with a command's name."""
    named = any(line.startswith(name + ' --') or line.startswith(name + ' ...') for name in options)
    for run in [line] if named else re.findall(r'morvane-cli (.*?)(?= (?:[|;>#]|\|\||:::)|$)', line):
        command = command_of(run.split(), options)
        known = options[command] | options[EVERYWHERE] | USAGE
        yield from (f'{command} has no {option}' for option in OPTION.findall(run) if option not in known)


def code_of_readme(root):
    text = (pathlib.Path(root) / 'README.md').read_text(encoding='utf-8').replace('\\\n', ' ')
    return re.findall(r'^ {4}.*|`[^`\n]+`', text, re.M)


def untrue_options(pages, root, reference):
    options = options_of(reference)
    told = [(page.name, line) for page in pages for line in page.code]
    told += [('README.md', line.strip(' `')) for line in code_of_readme(root)]
    for name, line in told:
        yield from (f'{name}: {fault}: {line}' for fault in unknown_options(line, options))


def quoted_in_boxes(page):
    """What stands in quotation marks in the tables of boxes, in the column that tells what a box says."""
    for head, *rows in page.tables:
        for column in (head.index(name) for name in SAID if name in head):
            for row in rows:
                yield from QUOTED.findall(row[column])


def untrue_words(pages, sources):
    """Of a text, `...` stands for what differs. The guide sets stops and commas where a box begins a new line."""
    said = [without_stops(text) for text in sources.said()]
    for page in pages:
        for text in quoted_in_boxes(page):
            parts = [without_stops(part) for part in text.split('...')]
            if not any(all(part in file for part in parts) for file in said):
                yield f'{page.name}: no box says "{text}"'


def without_stops(text):
    return ' '.join(re.sub(r'[.,:!?](?=\s|$)', ' ', text).split())


def faults(guide, root):
    every = guide_pages.pages(guide)
    pages = [page for page in every.values() if page.name not in MADE]
    sources = cpp_sources.Sources(pathlib.Path(root))
    checks = (untold_titles, untold_settings, untold_preferences, untold_codes, untold_commands, help_in_vain,
              untrue_words)
    found = [fault for check in checks for fault in check(pages, sources)]
    return found + list(untrue_options(pages, root, every[REFERENCE]))


if __name__ == '__main__':
    sys.exit('\n'.join(faults(*sys.argv[1:])) or 0)
