"""The pages of the guide as HTML, read for what they link to, show and tell."""

import html.parser
import pathlib

MARKED = {'strong', 'em', 'code', 'th', 'td', 'h1', 'h2', 'h3', 'h4'}
LINES = {'p', 'li', 'tr', 'pre', 'div'} | MARKED


def plain(text):
    return ' '.join(text.split())


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.name = path.name
        self.anchors, self.links, self.pictures, self.tables = set(), [], [], []
        self.alike = set()  # anchors that are there more than once
        self.marked = set()  # all that stands out as a whole: in bold, in a cell, as code, as a heading
        self.code = []  # line by line
        self.code_below = {}  # the same by the heading above it
        self.text = ''
        self._heading = ''
        self._open = []
        self.feed(path.read_text(encoding='utf-8'))
        self.text = plain(self.text)

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if 'id' in given:
            (self.alike if given['id'] in self.anchors else self.anchors).add(given['id'])
        if tag in ('a', 'link') and 'href' in given:
            self.links.append(given['href'])
        if tag == 'img':
            self._take_picture(given)
        if tag == 'table':
            self.tables.append([])
        if tag == 'tr':
            self.tables[-1].append([])
        if tag in MARKED:
            self._open.append([tag, ''])

    def _take_picture(self, given):
        sharp = [part.split()[0] for part in given.get('srcset', '').split(',') if part]
        self.pictures += [(source, given.get('alt', '')) for source in [given.get('src', '')] + sharp]

    def handle_endtag(self, tag):
        if tag in LINES:
            self.text += ' '
        if not self._open or self._open[-1][0] != tag:
            return
        raw = self._open.pop()[1]
        said = plain(raw)
        if tag == 'h2':
            self._heading = said
        if tag == 'code':
            lines = [plain(line) for line in raw.replace('\\\n', ' ').splitlines()]
            self.code += lines
            self.code_below.setdefault(self._heading, []).extend(lines)
        self.marked.add(said.rstrip(':.'))
        if tag in ('td', 'th'):
            self.tables[-1][-1].append(said)

    def handle_data(self, data):
        self.text += data
        for element in self._open:
            element[1] += data


def pages(folder):
    return {path.name: Page(path) for path in sorted(pathlib.Path(folder).glob('*.html'))}


def names(pages_txt):
    """The pages that the guide is to have, in their order."""
    lines = pathlib.Path(pages_txt).read_text(encoding='utf-8').splitlines()
    return [line.split('|')[0].strip() for line in lines if line.strip() and not line.startswith('#')]
