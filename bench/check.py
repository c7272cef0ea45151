#!/usr/bin/env python3
"""check.py ZORVA [--forms N] [--rows N] [--schema FILE]

Times `zorva check` over many generated forms, beside `xmllint` with a RELAX NG schema on the
same files (without one: well-formedness alone), and shows how the time grows with the rows of
a form. Ends with 1 if a form is not clean, if the whole takes more than ten seconds, or if ten
times the rows cost more than twelve times the time."""
import argparse
import os
import resource
import subprocess
import sys
import tempfile

LARGEST_TIME = 10.0
LARGEST_GROWTH = 12.0


def prop(name, kind, text):
    return f'      <Property name="{name}"><{kind}>{text}</{kind}></Property>\n'


SEEN = prop('enabled', 'Bool', 'true') + prop('visible', 'Bool', 'true') + prop('generateParameterXml', 'Bool', 'true')


def row(number):
    name = f'row{number}'
    path = prop('parameterXmlTag', 'String', f'Group{number // 20}/{name}')
    label = prop('labelText', 'String', f'Row {number}')
    kinds = {
        0: ('ComboBox', prop('enumName', 'String', 'Modes') + prop('currentValue', 'String', '2')),
        1: ('SpinBox', prop('value', 'Int', '4') + prop('minimum', 'Int', '0') + prop('maximum', 'Int', '9')),
        2: ('CheckBox', prop('checked', 'Bool', 'true')),
        3: ('LineEdit', prop('text', 'String', 'words')),
        4: ('DoubleSpinBox', prop('value', 'Double', '1.5') + prop('minimum', 'Double', '0') + prop('maximum', 'Double', '9')
            + prop('singleStep', 'Double', '0.5') + prop('decimals', 'Int', '1')),
    }
    kind, own = kinds[number % 5]
    return f'    <Widget name="{name}" class="{kind}">\n{label}{own}{SEEN}{path}    </Widget>\n'


def form(rows):
    entries = ''.join(f'      <EnumValue><DisplayName>Mode {i}</DisplayName><EnumIdentifier>MODE_{i}</EnumIdentifier>'
                      f'<Value>{i}</Value></EnumValue>\n' for i in range(8))
    connections = ''.join(f'row{i}.toggled.connect(function(on) {{ row{i - 1}.setEnabled(on); }});\n'
                          for i in range(2, rows, 10))
    return ('<?xml version="1.0" encoding="UTF-8"?>\n<KVParamGui version="1.0">\n  <Enums>\n    <Enum name="Modes">\n'
            f'{entries}    </Enum>\n  </Enums>\n  <Sheet name="sheet">\n{"".join(row(i) for i in range(rows))}  </Sheet>\n'
            f'  <Script language="QtScript"><![CDATA[\n{connections}]]></Script>\n</KVParamGui>\n')


def write(folder, forms, rows):
    os.makedirs(folder)
    names = [os.path.join(folder, f'form{i}.zorva') for i in range(forms)]
    for name in names:
        with open(name, 'w', encoding='utf-8') as file:
            file.write(form(rows))
    return names


def timed(command):
    """Processor time of the command with its children, and its exit code."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    code = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime, code


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('zorva')
    parser.add_argument('--forms', type=int, default=300)
    parser.add_argument('--rows', type=int, default=50)
    parser.add_argument('--schema')
    arguments = parser.parse_args()
    failed = False
    with tempfile.TemporaryDirectory() as folder:
        names = write(os.path.join(folder, 'many'), arguments.forms, arguments.rows)
        ours, code = timed([arguments.zorva, 'check', *names])
        schema = ['--relaxng', arguments.schema] if arguments.schema else []
        theirs, _ = timed(['xmllint', '--noout', *schema, *names])
        print(f'{arguments.forms} forms of {arguments.rows} rows: zorva check {ours:.2f} s, '
              f'xmllint {"--relaxng " if schema else ""}{theirs:.2f} s, exit {code}')
        failed = failed or code != 0 or ours > LARGEST_TIME
        times = []
        for rows in (100, 1000, 10000):
            one = write(os.path.join(folder, str(rows)), 1, rows)
            times.append(min(timed([arguments.zorva, 'check', *one])[0] for _ in range(3)))
            print(f'1 form of {rows} rows: {times[-1]:.3f} s')
        growth = times[2] / times[1]
        print(f'growth from 1000 to 10000 rows: {growth:.1f}')
        failed = failed or growth > LARGEST_GROWTH
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
