"""Every type and member that a natvis file names exists: its expressions are compiled as members of their types.
And its types are those that gdb shows.

usage: natvis_test.py NATVIS SCRIPT_OF_GDB FOLDER COMPILER...
"""

import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree

SPACE = '{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}'
# What is said of nodes is evaluated in the node that the head points to.
OF_NODES = ('NextPointer', 'ValueNode')
HOLDS_EXPRESSION = ('StringView', 'Size', 'ValuePointer', 'ExpandedItem', 'HeadPointer', 'Item', 'Exec') + OF_NODES


def split(expression):
    """The expression and, from a format such as ",[length]su", the length."""
    match = re.fullmatch(r'(.*?)(?:,\s*(?:\[(.*)\])?\w*)?', expression.strip())
    return [part for part in match.groups() if part]


def in_text(text):
    return re.findall(r'\{([^{}]+)\}', text)


def expressions(element):
    tag, text = element.tag.removeprefix(SPACE), element.text or ''
    if 'Condition' in element.attrib:
        yield from split(element.attrib['Condition'])
    for found in in_text(element.attrib.get('Name', '') if tag == 'Item' else text if tag == 'DisplayString' else ''):
        yield from split(found)
    if tag in HOLDS_EXPRESSION:
        yield from split(text)


def check_type(number, element):
    """A class derived from the type, with one operation for each expression, and one derived from its nodes."""
    name = element.attrib['Name'].replace('*', 'double')
    variables = ''.join(f"auto {v.attrib['Name']} = ({v.attrib['InitialValue']}); (void){v.attrib['Name']}; "
                        for v in element.iter(SPACE + 'Variable'))
    own, of_nodes = [], []
    for part in element.iter():
        for text in expressions(part):
            if part.tag.removeprefix(SPACE) in OF_NODES:
                of_nodes.append(f'void f{len(of_nodes)}() {{ (void)({text}); }}')
            else:
                own.append(f'void f{len(own)}() {{ {variables}(void)({text}); }}')
    lines = [f'struct Type{number} : {name} {{', *own, '};']
    if of_nodes:
        node = f'std::remove_pointer_t<decltype({name}::head_)>'
        lines += [f'struct Node{number} : {node} {{', *of_nodes, '};']
    return '\n'.join(lines).replace('$T1', 'double')


def main():
    natvis, script, folder, *compiler = sys.argv[1:]
    types = xml.etree.ElementTree.parse(natvis).getroot().findall(SPACE + 'Type')
    of_gdb = re.findall(r"\('(\w+)(?:<\.\*>)?', \w+\),", pathlib.Path(script).read_text())
    if sorted(of_gdb) != sorted(element.attrib['Name'].removesuffix('<*>') for element in types):
        sys.exit(f'{natvis} shows other types than gdb, which shows {of_gdb}')
    source = pathlib.Path(folder, 'natvis_test.cpp')
    source.write_text('#include <kova/kova.h>\n#include <type_traits>\n'
                      + '\n'.join(check_type(number, element) for number, element in enumerate(types)) + '\n')
    sys.exit(subprocess.run([*compiler, '-std=c++17', '-fsyntax-only', '-fno-access-control',
                                          source]).returncode)


main()
