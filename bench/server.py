#!/usr/bin/env python3
"""server.py ZORVA [--rows N] [--rounds N]

Plays an editor to `zorva server` on a generated form: types a letter and asks for completion, help
and names in the description and in the script, and waits for the findings after a pause. Ends with
1 if 19 of 20 answers do not come within 50 ms, or the findings not within 300 ms of the last
letter. What counts is processor time, of the server's threads and the process that runs scripts,
and for the findings the pause before it: other programs disturb that little. The time on the wall
stands beside it."""
import argparse
import glob
import json
import os
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import check  # noqa: E402

LARGEST_ANSWER = 0.050
LARGEST_FINDINGS = 0.300
PAUSE = 0.100  # without a change, until the server looks for findings
URI = 'file:///form.zorva'


class Server:
    def __init__(self, program):
        self.process = subprocess.Popen([program, 'server'], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.last = 0
        self.version = 1

    def send(self, message):
        content = json.dumps(message).encode()
        self.process.stdin.write(b'Content-Length: %d\r\n\r\n' % len(content) + content)
        self.process.stdin.flush()

    def receive(self):
        length = 0
        while (line := self.process.stdout.readline().strip()):
            if line.lower().startswith(b'content-length:'):
                length = int(line.split(b':')[1])
        return json.loads(self.process.stdout.read(length))

    def ask(self, method, params):
        self.last += 1
        self.send({'id': self.last, 'method': method, 'params': params})
        while (answer := self.receive()).get('id') != self.last:
            pass
        return answer['result']

    def tell(self, method, params):
        self.send({'method': method, 'params': params})

    def ask_at(self, method, place):
        return self.ask('textDocument/' + method, {'textDocument': {'uri': URI}, 'position': place})

    def change(self, place, text, removed=0):
        self.version += 1
        end = dict(place, character=place['character'] + removed)
        self.tell('textDocument/didChange', {'textDocument': {'uri': URI, 'version': self.version},
                                             'contentChanges': [{'range': {'start': place, 'end': end}, 'text': text}]})

    def processor_time(self, whole):
        """Seconds of the thread that answers, or of all and the process that scripts run in."""
        if not whole:
            with open(f'/proc/{self.process.pid}/task/{self.process.pid}/schedstat', encoding='ascii') as file:
                return int(file.read().split()[0]) / 1e9
        tasks = glob.glob(f'/proc/{self.process.pid}/task/*/schedstat')
        for children in glob.glob(f'/proc/{self.process.pid}/task/*/children'):
            with open(children, encoding='ascii') as file:
                tasks += [task for child in file.read().split() for task in glob.glob(f'/proc/{child}/task/*/schedstat')]
        total = 0
        for task in tasks:
            with open(task, encoding='ascii') as file:
                total += int(file.read().split()[0])
        return total / 1e9

    def findings(self):
        while True:
            message = self.receive()
            if message.get('method') == 'textDocument/publishDiagnostics' and message['params'].get('version') == self.version:
                return message['params']['diagnostics']


def place_in(text, mark):
    before = text[:text.index(mark) + len(mark)]
    return {'line': before.count('\n'), 'character': len(before) - before.rfind('\n') - 1}


def measure(server, action, rounds, whole=False):
    times = []
    for _ in range(rounds):
        begin = server.processor_time(whole), time.monotonic()
        action()
        times.append((server.processor_time(whole) - begin[0], time.monotonic() - begin[1]))
    return sorted(times)


def report(title, times, largest, pause=0):
    used = [time[0] + pause for time in times]
    median, late = used[len(used) // 2], used[max(0, len(used) - 1 - len(used) // 20)]
    walls = sorted(time[1] for time in times)
    print(f'{title}: median {median * 1000:.1f} ms, 19 of 20 within {late * 1000:.1f} ms, bound {largest * 1000:.0f} ms; '
          f'on the wall {walls[len(walls) // 2] * 1000:.1f} ms')
    return late <= largest


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('zorva')
    parser.add_argument('--rows', type=int, default=1000)
    parser.add_argument('--rounds', type=int, default=40)
    arguments = parser.parse_args()
    text = check.form(arguments.rows)
    server = Server(arguments.zorva)
    server.ask('initialize', {'processId': os.getpid(), 'capabilities': {}})
    server.tell('initialized', {})
    server.tell('textDocument/didOpen', {'textDocument': {'uri': URI, 'languageId': 'zorva', 'version': 1, 'text': text}})
    findings = server.findings()
    print(f'{arguments.rows} rows, {len(text) // 1000} kB, {len(findings)} findings')

    middle = f'name="row{arguments.rows // 2}" '
    places = {'description': place_in(text, middle + 'class="'), 'script': place_in(text, '<![CDATA[\n')}
    sound = True
    for where, place in places.items():
        for method in ('completion', 'hover', 'definition', 'documentHighlight'):
            def type_and_ask(at=place, how=method):
                # Each answer is about a text that was never seen before.
                server.change(at, 'r', 0 if server.version % 2 else 1)
                server.ask_at(how, at)
            times = measure(server, type_and_ask, arguments.rounds)
            sound = report(f'{method} in the {where}, with a letter before it', times, LARGEST_ANSWER) and sound
            server.findings()
    times = measure(server, lambda: (server.change(places['description'], 'x'), server.findings()),
                    max(5, arguments.rounds // 4), whole=True)
    sound = report('findings behind the last letter', times, LARGEST_FINDINGS, PAUSE) and sound
    server.ask('shutdown', None)
    server.tell('exit', None)
    return 0 if sound and server.process.wait() == 0 else 1


if __name__ == '__main__':
    sys.exit(main())
