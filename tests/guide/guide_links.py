#!/usr/bin/env python3
"""guide_links.py GUIDE PAGES.TXT: what is broken in the guide's HTML. A link to nowhere, a picture that is missing or has
no words, a page that is not there or to which no other leads."""

import pathlib
import sys

import guide_pages


def broken_link(folder, pages, page, link):
    if link.startswith(('http:', 'https:', 'mailto:')):
        return None
    file, _, anchor = link.partition('#')
    target = pages.get(file or page.name)
    if target is None:
        return None if (folder / file).is_file() else f'{page.name}: there is no {file}'
    return f'{page.name}: there is no {link}' if anchor and anchor not in target.anchors else None


def picture_faults(folder, page):
    for source, words in page.pictures:
        if not (folder / source).is_file():
            yield f'{page.name}: there is no picture {source}'
        if not words:
            yield f'{page.name}: picture {source} has no words'


def unreached(pages):
    reached, to_go = set(), ['index.html']
    while to_go:
        name = to_go.pop()
        if name in pages and name not in reached:
            reached.add(name)
            to_go += [link.partition('#')[0] for link in pages[name].links]
    return [f'no page leads to {name}' for name in pages if name not in reached]


def faults(folder, pages_txt):
    folder = pathlib.Path(folder)
    pages = guide_pages.pages(folder)
    found = [f'the page {name} is missing' for name in guide_pages.names(pages_txt) if name + '.html' not in pages]
    for page in pages.values():
        found += filter(None, (broken_link(folder, pages, page, link) for link in page.links))
        found += picture_faults(folder, page)
        found += [f'{page.name}: two places are called #{anchor}' for anchor in sorted(page.alike)]
    return found + unreached(pages)


if __name__ == '__main__':
    sys.exit('\n'.join(faults(*sys.argv[1:])) or 0)
