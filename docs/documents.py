"""Fails when a link of a document leads nowhere, the README leaves out a document, or the list of behaviours that
callers depend on and the headers do not name each other's classes."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
README = ROOT / 'README.md'
BEHAVIOURS = ROOT / 'docs' / 'behaviours.md'


def links(document):
    """The files; links to headings are the reference's matter."""
    for target in re.findall(r'\]\(([^)\s#]+)', document.read_text()):
        yield target, (document.parent / target).resolve()


def wrong_links():
    documents = [*ROOT.glob('*.md'), *ROOT.glob('docs/*.md')]
    for document in documents:
        for target, file in links(document):
            if not file.exists():
                yield f'{document.name}: {target} leads nowhere'
    reached = {file for _, file in links(README)}
    for document in documents:
        if document != README and document not in reached:
            yield f'README.md does not lead to {document.name}'


def wrong_behaviours():
    """A header that marks something has a line about one of its names, and each line is about a name of a header."""
    listed = set()
    for place in re.findall(r'^\| (.*?) (?<!\\)\|', BEHAVIOURS.read_text(), re.MULTILINE):
        listed.update(re.findall(r'`\$?(\w+)', place))
    known = set()
    for header in sorted(ROOT.glob('kova/*/*.h')):
        text = header.read_text()
        known.update(re.findall(r'\w+', text))
        declared = set(re.findall(r'(?:class|struct|enum|union) (?:KOVA_API )?(\w+)|^KOVA_API .*?(\w+)\(', text, re.MULTILINE))
        if 'Callers depend on' in text and not {name for names in declared for name in names} & listed:
            yield f'{BEHAVIOURS.name}: no line about {header.relative_to(ROOT)}, where callers depend on something'
    for name in sorted(listed - known):
        yield f'{BEHAVIOURS.name}: no header has {name}'


sys.exit('\n'.join([*wrong_links(), *wrong_behaviours()]) or 0)
