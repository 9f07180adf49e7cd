"""Fails when a link of a document leads to a file or a heading that is not there, or the README misses a document."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def anchors(document):
    headings = re.findall(r'^#+ (.*)', document.read_text(), re.MULTILINE)
    return {re.sub(r'[^\w -]', '', heading).lower().replace(' ', '-') for heading in headings}


def main():
    documents = [*ROOT.glob('*.md'), *ROOT.glob('docs/*.md')]
    linked = {}
    wrong = []
    for document in documents:
        for target in re.findall(r'\]\(([^)\s]+)\)', document.read_text()):
            name, _, anchor = target.partition('#')
            file = (document.parent / name).resolve() if name else document
            linked.setdefault(document, set()).add(file)
            if not file.exists() or (anchor and anchor not in anchors(file)):
                wrong.append(f'{document.name}: {target} leads nowhere')
    readme = ROOT / 'README.md'
    wrong += [f'README.md does not lead to {document.name}' for document in documents
              if document != readme and document not in linked.get(readme, ())]
    sys.exit('\n'.join(wrong) or 0)


main()
