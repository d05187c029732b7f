#!/usr/bin/python3
"""Seeded faults in the sources, each met by the project's own tests.

    mutate.py                     plan, build, run; what the tests catch and what survives
    mutate.py --since main        only in lines that have changed since that commit
    mutate.py --all-tests         also: what only one test catches (runs every test that reaches a fault)
    mutate.py --keep              with the build of last time; goes on where it stopped
    mutate.py --keep --only 17,23 these two afresh, with what the tests say
    mutate.py --report            the figures so far, nothing is run

All faults sit in one build of a clone of HEAD (in build/mutate), each behind a number that the environment variable
LUMBRA_MUTANT turns on. A fault that does not compile is dropped. Each test is run once without a fault to learn which
numbers it reaches, so that a fault meets only the tests that reach it, fastest first. With --all-tests the end-to-end
tests are left out where two others have caught the fault, the window's test where one has. A test that fails alone is
run again before it counts. Tests run in a network and process namespace of their own: it takes root or user namespaces.

The folder holds plan.json, results.jsonl and report.txt. Out of this way's reach: constexpr tables, case labels, types,
QML.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import random
import re
import shlex
import shutil
import signal
import subprocess
import sys
import threading
import time
from pathlib import Path

from clang.cindex import CursorKind as K, Index, TypeKind as T

ROOT = Path(__file__).resolve().parent.parent
HEAVY = {'toolkit', 'model', 'protocol', 'link', 'screens', 'app', 'script'}  # rooms whose lines weigh double
KINDS = {'removed': 5, 'never': 3, 'always': 3, 'relation': 3, 'logic': 3, 'number': 3, 'return': 3, 'arithmetic': 2,
         'not': 2, 'flag': 2, 'swapped': 2, 'choice': 2, 'text': 1}  # kind of fault: how often it is drawn
INSTEAD = {'<': '<=', '<=': '<', '>': '>=', '>=': '>', '==': '!=', '!=': '==', '&&': '||', '||': '&&',
           '+': '-', '-': '+', '*': '/', '/': '*', '%': '/'}
# Run last: the first of them where nothing, the others where one other test has caught the fault.
SLOW = ('touch_quick', 'EndToEnd.')
NUMBERS = {T.INT, T.UINT, T.LONG, T.ULONG, T.LONGLONG, T.ULONGLONG, T.SHORT, T.USHORT, T.DOUBLE, T.FLOAT, T.UCHAR}
DECLARED = {K.VAR_DECL, K.DECL_STMT, K.FUNCTION_DECL, K.CXX_METHOD, K.FUNCTION_TEMPLATE, K.CONSTRUCTOR}
PLAIN = {**os.environ, 'LC_ALL': 'C.UTF-8'}
ALONE = ['unshare', *(['--map-root-user'] if os.geteuid() else []), '--net', '--pid', '--fork', '--kill-child',
         '--mount-proc', 'sh', '-c', 'ip link set lo up; "$@"; exit $?', 'sh']
ON = 'lumbra_mutant::on(%d)'
HEADER = r'''#pragma once
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
namespace lumbra_mutant {
struct State {
    int active = -1;
    unsigned char* reached = nullptr;
    State() {
        if (const char* number = std::getenv("LUMBRA_MUTANT"))
            active = std::atoi(number);
        if (const char* path = std::getenv("LUMBRA_REACHED")) { // shared memory, so that no kind of end loses it
            void* at = ::mmap(nullptr, 65536, PROT_READ | PROT_WRITE, MAP_SHARED, ::open(path, O_RDWR | O_CLOEXEC), 0);
            reached = at == MAP_FAILED ? nullptr : static_cast<unsigned char*>(at);
        }
    }
};
inline bool on(int id) {
    static const State state;
    if (state.reached)
        state.reached[id] = 1;
    return id == state.active;
}
}
'''


class File:
    """One source file and the places in it where a fault can be put."""

    def __init__(self, path, name, lines):
        """`lines` are those that faults may begin in; None for all."""
        self.path, self.name, self.room, self.places, self.chosen = path, name, name.split('/')[1], {}, lines
        self.bytes = Path(path).read_bytes()
        lines = [line.strip() for line in self.bytes.decode().split('\n')]
        self.lines = sum(1 for line in lines if line and not line.startswith(('//', '#', '}')))

    def text(self, start, end):
        return self.bytes[start:end].decode()

    def add(self, kind, start, end, template):
        """`template` is the faulty code, a § where the switch is asked."""
        original = self.text(start, end)
        if self.chosen is not None and self.bytes[:start].count(b'\n') + 1 not in self.chosen:
            return
        if 'Q_' not in original and 'assert' not in original and original.count('(') == original.count(')'):
            self.places[(kind, start, end)] = template


def span(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def find_places(cursor, file, result=None):
    """Adds the places at and under `cursor`; `result` is what the function around it returns."""
    kind, (start, end) = cursor.kind, span(cursor)
    text, children = file.text(start, end), list(cursor.get_children())
    if kind in (K.STATIC_ASSERT, K.ENUM_DECL) or kind in DECLARED and re.search(
            r'\b(constexpr|consteval)\b', re.split(r'[{=(;]', text, maxsplit=1)[0]):
        return
    if kind in (K.FUNCTION_DECL, K.CXX_METHOD, K.FUNCTION_TEMPLATE):
        result = cursor.result_type.get_canonical().kind
    elif kind == K.LAMBDA_EXPR:
        result = None
    inner = [c for c in children if c.kind.is_expression() and span(c)[1] > span(c)[0]]
    s, e = span(children[0]) if children else (0, 0)
    condition = file.text(s, e)
    if kind in (K.IF_STMT, K.WHILE_STMT) and not text.startswith('if constexpr') and children[0].kind.is_expression():
        file.add('never', s, e, f'!§ && ({condition})')
        if kind == K.IF_STMT:
            file.add('always', s, e, f'§ || ({condition})')
    elif kind == K.CONDITIONAL_OPERATOR and len(children) == 3:
        file.add('choice', s, e, f'(§ != bool({condition}))')
    elif kind == K.RETURN_STMT and len(inner) == 1:
        returned(file, start, end, inner[0], result)
    elif kind == K.BINARY_OPERATOR:
        binary(file, cursor, inner)
    elif kind == K.CALL_EXPR and cursor.spelling.startswith('operator'):
        binary(file, cursor, list(cursor.get_arguments()))
    elif kind == K.CALL_EXPR:
        swapped(file, list(cursor.get_arguments()))
    elif kind == K.UNARY_OPERATOR and text[:1] in ('!', '-') and text[:2] != '--':
        file.add('not', start, end, f'(§ ? {"bool" if text[0] == "!" else ""}({text[1:]}) : {text})')
    elif kind in (K.INTEGER_LITERAL, K.FLOATING_LITERAL):
        sign = '+' if text.strip('.0fFuUzZ') == '' or start % 2 else '-'
        file.add('number', start, end, f'({text} {sign} int(§))')
    elif kind == K.CXX_BOOL_LITERAL_EXPR:
        file.add('flag', start, end, f'({text} != §)')
    elif kind == K.STRING_LITERAL and file.room != 'touch' and re.fullmatch(r'"[^"]+"', text):
        file.add('text', start, end, f'(§ ? "" : {text})')
    if kind in (K.COMPOUND_STMT, K.IF_STMT, K.FOR_STMT, K.CXX_FOR_RANGE_STMT, K.CASE_STMT, K.DEFAULT_STMT):
        for child in children if kind == K.COMPOUND_STMT else children[-2:] if kind == K.IF_STMT else children[-1:]:
            removed(file, child)
    for child in children[kind == K.CASE_STMT:]:
        find_places(child, file, result)


def removed(file, statement):
    start, end = span(statement)
    text, before = file.text(start, end), file.text(0, start).rstrip()
    if statement.kind.is_expression() and file.bytes[end:end + 1] == b';' and \
            before.endswith((';', '{', '}', ')', ':', 'else', 'Q_EMIT')):
        file.add('removed', start, end + 1, f'{{ if (!§) {{ {text}; }} }}')


def returned(file, start, end, value, result):
    text = file.text(*span(value))
    if re.fullmatch(r'[\w:]*\{\}|0|nullptr|std::nullopt', text) or file.bytes[end:end + 1] != b';':
        return  # the same as what would be put there
    if value.type.get_canonical().kind == T.BOOL:
        file.add('return', *span(value), f'§ != bool({text})')
    elif result not in (T.LVALUEREFERENCE, T.DEPENDENT):
        file.add('return', start, end + 1, f'{{ if (§) return {{}}; return {text}; }}')


def binary(file, cursor, sides):
    if len(sides) != 2:
        return
    left, right = sides
    a, b = file.text(*span(left)), file.text(*span(right))
    operator = file.text(span(left)[1], span(right)[0]).strip()
    kind = 'logic' if operator in ('&&', '||') else 'arithmetic' if operator in '+-*/%' else 'relation'
    numeric = all(c.type.get_canonical().kind in NUMBERS for c in (cursor, left, right))
    if operator in INSTEAD and a and b and (numeric or kind != 'arithmetic'):
        file.add(kind, span(left)[0], span(right)[1], f'(§ ? ({a} {INSTEAD[operator]} {b}) : ({a} {operator} {b}))')


def swapped(file, arguments):
    for one, two in zip(arguments, arguments[1:]):
        a, b = file.text(*span(one)), file.text(*span(two))
        kind = one.type.get_canonical()
        if a and b and a != b and '{' not in a + b and kind.spelling == two.type.get_canonical().spelling \
                and kind.kind not in (T.DEPENDENT, T.UNEXPOSED, T.INVALID):
            between = file.text(span(one)[1], span(two)[0])
            file.add('swapped', span(one)[0], span(two)[1], f'(§ ? {b} : {a}){between}(§ ? {a} : {b})')


def changed_lines(source, since):
    """By file, the numbers of the lines that have changed since that commit."""
    changed, name = collections.defaultdict(set), ''
    diff = subprocess.run(['git', 'diff', '-U0', since, 'HEAD', '--', 'src'], cwd=source, check=True,
                          capture_output=True, text=True).stdout
    for line in diff.splitlines():
        if line.startswith('+++ b/'):
            name = line[6:]
        elif hunk := re.match(r'@@ \S+ \+(\d+)(?:,(\d+))? @@', line):
            changed[name].update(range(int(hunk[1]), int(hunk[1]) + int(hunk[2] or 1)))
    return changed


def all_places(source, commands, rooms, changed):
    """Every file of the rooms with its places. A header is read in the first unit that includes it."""
    files, index, room = {}, Index.create(), 'src/(%s)/[A-Za-z0-9]+' % '|'.join(rooms)
    for command in commands:
        if not re.fullmatch(room + r'\.cpp', os.path.relpath(command['file'], source)):
            continue
        words = shlex.split(command['command'])
        new, flags = {}, [word for word, before in zip(words[1:], words)
                          if word.startswith(('-D', '-I', '-std', '-isystem')) or before == '-isystem']
        for cursor in index.parse(command['file'], args=flags).cursor.get_children():
            path = cursor.location.file.name if cursor.location.file else source
            name = os.path.relpath(path, source)
            if re.fullmatch(room + r'\.(cpp|h)', name) and name not in files:
                lines = None if changed is None else changed.get(name, ())
                find_places(cursor, new.setdefault(name, File(path, name, lines)))
        files.update(new)
    return [files[name] for name in sorted(files)]


def draw(files, count, seed):
    """`count` places that do not overlap, spread over the files by their lines."""
    chance, mutants, taken = random.Random(seed), [], collections.defaultdict(list)
    def weight(f):
        return f.lines * (2 if f.room in HEAVY else 1)
    total = sum(map(weight, files))
    left = {f.name: count * weight(f) / total for f in files}
    pools = {f.name: collections.defaultdict(list) for f in files}
    for f in files:
        for place in sorted(f.places):
            pools[f.name][place[0]].append(place)
    while len(mutants) < count and any(any(pool.values()) for pool in pools.values()):
        file = max((f for f in files if any(pools[f.name].values())), key=lambda f: (left[f.name], f.name))
        pool = pools[file.name]
        kinds = [k for k in KINDS if pool[k]]
        kind = chance.choices(kinds, [KINDS[k] for k in kinds])[0]
        place = pool[kind].pop(chance.randrange(len(pool[kind])))
        _, start, end = place
        if not any(start < e and s < end for s, e in taken[file.name]):
            taken[file.name].append((start, end))
            left[file.name] -= 1
            mutants.append({'id': len(mutants), 'file': file.name, 'room': file.room, 'kind': kind, 'start': start,
                            'end': end, 'line': file.bytes[:start].count(b'\n') + 1, 'dropped': False,
                            'before': file.text(start, end), 'after': file.places[place]})
    return mutants


def write_sources(source, mutants, names):
    """Writes the named files with their faults; notes in which lines each then lies."""
    for name in names:
        original = subprocess.run(['git', 'show', f'HEAD:{name}'], cwd=source, check=True, capture_output=True).stdout
        out, at = b'', 0
        for m in sorted((m for m in mutants if m['file'] == name and not m['dropped']), key=lambda m: m['start']):
            out += original[at:m['start']]
            first = out.count(b'\n') + 1
            out += m['after'].replace('§', ON % m['id']).encode()
            m['lines'], at = [first, out.count(b'\n') + 1], m['end']
        (source / name).write_bytes(out + original[at:])


def drop_offenders(source, mutants, output):
    """Drops what the compiler complains about and writes their files anew."""
    def blamed(word, whole_file=False):
        places = [(os.path.relpath(path, source), int(line))
                  for path, line in re.findall(r'^(\S+?):(\d+):\d+: %s' % word, output, re.MULTILINE)]
        return [m for m in mutants if not m['dropped'] and any(
            m['file'] == name and (whole_file or m['lines'][0] <= line <= m['lines'][1]) for name, line in places)]
    guilty = blamed('(?:fatal )?error') or blamed('note') or blamed('(?:fatal )?error', whole_file=True)
    if not guilty:
        sys.exit(output[-4000:] + '\nthe build fails, and no fault is to blame')
    for m in guilty:
        m['dropped'] = True
    write_sources(source, mutants, {m['file'] for m in guilty})


def build(source, mutants, commands, jobs):
    def checked(command):
        words = [w for w in shlex.split(command['command']) if w != '-c']
        words[words.index('-o'):words.index('-o') + 2] = ['-fsyntax-only']
        return command, subprocess.run(words, cwd=command['directory'], capture_output=True, text=True, env=PLAIN)

    write_sources(source, mutants, {m['file'] for m in mutants})
    pending = [c for c in commands if os.path.relpath(c['file'], source).startswith('src/')]
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:  # cheap: most offenders show here
        while pending:
            failed = [(c, r) for c, r in pool.map(checked, pending) if r.returncode]
            if failed:
                drop_offenders(source, mutants, '\n'.join(r.stderr for _, r in failed))
            pending = [c for c, _ in failed]
    while True:
        say('building')
        made = subprocess.run(['cmake', '--build', '--preset', 'dev', '-j', str(jobs), '--', '-k', '0', '--quiet'],
                              cwd=source, capture_output=True, text=True, env=PLAIN)
        if made.returncode == 0:
            return
        drop_offenders(source, mutants, made.stdout + made.stderr)


def run(work, test, limit, **environment):
    """'passed', 'failed' or 'hung', and what it printed."""
    temporary = work / 'tmp' / str(threading.get_ident())
    shutil.rmtree(temporary, ignore_errors=True)
    temporary.mkdir(parents=True)
    process = subprocess.Popen(
        [*ALONE, *test['command']], cwd=test['folder'], start_new_session=True, stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors='replace',
        env={**PLAIN, 'QT_QPA_PLATFORM': 'offscreen', 'TMPDIR': str(temporary), **test['environment'], **environment})
    try:
        output = process.communicate(timeout=limit)[0]
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate()
        return 'hung', ''
    return 'failed' if process.returncode else 'passed', output


def baseline(work, source, count):
    """Every test with the numbers that it reaches, in the order in which a fault meets them."""
    shown = subprocess.run(['ctest', '--preset', 'dev', '--show-only=json-v1'], cwd=source, check=True,
                           capture_output=True)
    tests, reach = [], work / 'reached'
    for entry in json.loads(shown.stdout)['tests']:
        properties = {p['name']: p['value'] for p in entry['properties']}
        test = {'name': entry['name'], 'command': entry['command'], 'folder': properties['WORKING_DIRECTORY'],
                'environment': dict(e.split('=', 1) for e in properties.get('ENVIRONMENT', []))}
        reach.write_bytes(bytes(65536))
        began = time.monotonic()
        result, output = run(work, test, 300, LUMBRA_REACHED=str(reach))
        if result != 'passed':
            sys.exit(f"{test['name']} {result} without a fault:\n{output[-3000:]}")
        test['seconds'] = time.monotonic() - began
        test['reached'] = [i for i, byte in enumerate(reach.read_bytes()[:count]) if byte]
        tests.append(test)
    return sorted(tests, key=lambda t: ([t['name'].startswith(s) for s in SLOW], t['seconds']))


def meet(work, mutant, tests, everything, told):
    """One fault and the tests that reach it."""
    reaching = [t for t in tests if mutant['id'] in t['reached']]
    catchers, doubtful, hung, ran, number = [], [], 0, 0, str(mutant['id'])
    for test in reaching:
        slow = test['name'].startswith(SLOW)
        if catchers and (not everything or test['name'] == SLOW[0] or slow and len(catchers) > 1) or hung == 3:
            break
        ran += 1
        result, output = run(work, test, 5 * test['seconds'] + 5, LUMBRA_MUTANT=number)
        if result != 'passed':
            catchers.append(test)
            hung += result == 'hung'
        if result != 'passed' and told:
            print(f"---- {number} {test['name']} {result}\n{output[-1500:]}")
    limit = 5 * catchers[0]['seconds'] + 5 if len(catchers) == 1 else 0
    if limit and run(work, catchers[0], limit, LUMBRA_MUTANT=number)[0] == 'passed':
        doubtful, catchers = catchers, []  # a slow machine, not a fault found
    return {'id': mutant['id'], 'catchers': [t['name'] for t in catchers], 'doubtful': [t['name'] for t in doubtful],
            'reaching': len(reaching), 'all': everything or ran == len(reaching), 'hung': hung}


def lengths(source):
    """Lines of each test, by its name."""
    found = {}
    for path in (source / 'tests').rglob('*.cpp'):
        for m in re.finditer(r'^TEST(?:_F)?\((\w+), (\w+)\) \{.*?^\}', path.read_text(), re.MULTILINE | re.DOTALL):
            found[f'{m[1]}.{m[2]}'] = m[0].count('\n') + 1
    return found


def report(source, plan, results, out):
    mutants, long = [m for m in plan['mutants'] if m['id'] in results], lengths(source)
    catches, own = collections.Counter(), collections.Counter()

    def rate(chosen):
        dead = sum(1 for m in chosen if results[m['id']]['catchers'])
        return f'{dead:4} of {len(chosen):4}  {100 * dead / max(1, len(chosen)):5.1f} %'
    dropped = sum(m['dropped'] for m in plan['mutants'])
    out(f"faults drawn {len(plan['mutants'])}, dropped {dropped}, run {len(mutants)}")
    out(f'caught           {rate(mutants)}')
    for key in ('room', 'kind'):
        for value in sorted({m[key] for m in mutants}):
            out(f'  {key} {value:10}{rate([m for m in mutants if m[key] == value])}')
    for m in mutants:
        catchers = results[m['id']]['catchers']
        catches.update(catchers)
        own.update(catchers if len(catchers) == 1 and results[m['id']]['all'] else [])
    out('\ntest: catches, of these by no other (with --all-tests), faults reached, lines of test code, seconds')
    for t in sorted(plan['tests'], key=lambda t: (own[t['name']], -long.get(t['name'], 0))):
        if t['reached']:
            out(f"  {catches[t['name']]:4} {own[t['name']]:4} {len(t['reached']):4} {long.get(t['name'], 0):4} "
                f"{t['seconds']:6.2f}  {t['name']}")
    for title, reached in (('survivors', True), ('reached by no test', False)):
        chosen = [(m, r) for m, r in ((m, results[m['id']]) for m in mutants)
                  if not r['catchers'] and bool(r['reaching']) == reached]
        out(f'\n{title}: {len(chosen)}')
        for m, r in sorted(chosen, key=lambda c: (c[0]['file'], c[0]['line'])):
            doubt = ''.join(f' (caught once: {name})' for name in r['doubtful'])
            out(f"  #{m['id']} {m['file']}:{m['line']} {m['kind']}, {r['reaching']} tests reach it{doubt}")
            out('      ' + ' '.join(m['before'].split())[:200])
            out('   -> ' + ' '.join(m['after'].split())[:260])


def say(text):
    print(time.strftime('%H:%M:%S '), text, flush=True)


def prepare(options, work, source):
    """The plan: the faults and the tests, with the build that holds them."""
    shutil.rmtree(source, ignore_errors=True)
    subprocess.run(['git', 'clone', '-q', ROOT, source], check=True)
    (work / 'mutant.h').write_text(HEADER)
    flags = f'-DCMAKE_CXX_FLAGS=-w -include {work}/mutant.h'
    subprocess.run(['cmake', '--preset', 'dev', '--log-level=WARNING', '-DLUMBRA_TESTS=ON', flags], cwd=source,
                   check=True, stdout=subprocess.DEVNULL)
    commands = json.loads((source / 'build/dev/compile_commands.json').read_text())
    say('looking for places')
    rooms = options.rooms or ','.join(sorted(f.name for f in (source / 'src').iterdir() if f.is_dir()))
    since = options.since and subprocess.run(['git', 'rev-parse', options.since], cwd=ROOT, check=True,
                                             capture_output=True, text=True).stdout.strip()
    files = all_places(source, commands, rooms.split(','), changed_lines(source, since) if since else None)
    mutants = draw(files, options.count, options.seed)
    say(f'{sum(len(f.places) for f in files)} places in {len(files)} files, {len(mutants)} drawn; checking')
    build(source, mutants, commands, options.jobs)
    subprocess.run(['git', 'checkout', '-q', '--', 'src'], cwd=source, check=True)  # some tests read the sources
    say('the tests without a fault')
    return {'mutants': mutants, 'tests': baseline(work, source, len(mutants))}


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    for name, default in (('rooms', ''), ('only', ''), ('since', ''), ('seed', 1), ('count', 150),
                          ('jobs', os.cpu_count())):
        options.add_argument('--' + name, type=type(default), default=default)
    for name in ('keep', 'all-tests', 'report'):
        options.add_argument('--' + name, action='store_true')
    options = options.parse_args()
    work = ROOT / 'build/mutate'
    work.mkdir(parents=True, exist_ok=True)
    source, plan_file, results_file = (work / name for name in ('source', 'plan.json', 'results.jsonl'))
    if not options.keep and not options.report:
        results_file.write_text('')
        plan_file.write_text(json.dumps(prepare(options, work, source)))
    plan = json.loads(plan_file.read_text())
    results = {r['id']: r for r in map(json.loads, results_file.read_text().splitlines())}
    only = {int(n) for n in options.only.split(',') if n}
    due = [m for m in plan['mutants'] if not m['dropped'] and not options.report and (m['id'] in only if only else
           m['id'] not in results or options.all_tests and not results[m['id']]['all'])]
    say(f'{len(due)} faults meet the tests')
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool, open(results_file, 'a') as stream:
        for result in pool.map(lambda m: meet(work, m, plan['tests'], options.all_tests, bool(only)), due):
            results[result['id']] = result
            print(json.dumps(result), file=stream, flush=True)
    say('done')
    with open(work / 'report.txt', 'w') as stream:
        report(source, plan, results, lambda line: print(line) or print(line, file=stream))


if __name__ == '__main__':
    main()
