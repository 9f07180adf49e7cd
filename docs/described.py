"""Fails when a class, structure or union of the reference has no description.

usage: described.py FOLDER_OF_XML
"""

import pathlib
import sys
import xml.etree.ElementTree


def main():
    compounds = [xml.etree.ElementTree.parse(path).getroot().find('compounddef')
                 for kind in ('class', 'struct', 'union')
                 for path in sorted(pathlib.Path(sys.argv[1]).glob(f'{kind}*.xml'))]
    bare = [compound for compound in compounds if compound.get('prot') != 'private'
            and not ''.join(compound.find('briefdescription').itertext()).strip()]
    for compound in bare:
        place = compound.find('location')
        print(f"{place.get('file')}:{place.get('line')}: {compound.findtext('compoundname')} has no description")
    sys.exit(f'{len(bare)} of {len(compounds)} classes are not described' if bare or not compounds else 0)


main()
