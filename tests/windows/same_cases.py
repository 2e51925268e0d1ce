"""What both systems are asked to do: a case is a name and a function that is given a `Pair`."""

import itertools

import systems

DATA = systems.ROOT / 'tests/data'
CORPUS = systems.ROOT / 'fuzz/corpus'
FORMATS = ['pbn', 'bri', 'dge', 'dup', 'all', 'bre', 'csv']
SEED = '0123456789ABCDEF0123456789ABCDEF01234567'
SEEDS = ['--seedr', SEED, '--seedo', SEED[::-1]]
SHOWN_PARTS = 4
MACHINE = 'simulated,speed=1000,seed=7,serial=4711'
FIXED_RECORDS = {'bri_': '.bri', 'dge_': '.dge', 'dup_': '.dup', 'deal305_': '.all'}


# ---- The corpus

def plain_files(folder):
    return sorted(path for path in folder.iterdir() if path.is_file() and path.suffix != '.expected')


def with_folder(path):
    """Files of one name lie in several folders."""
    return f'{path.parent.name}_{path.stem}{path.suffix}'


def named_by_format(path):
    return path.name + next((end for start, end in FIXED_RECORDS.items() if path.name.startswith(start)), '.bri')


def board_files():
    folders = [path for path in sorted(DATA.iterdir()) if path.is_dir()]
    return [path for folder in folders for path in plain_files(folder)]


def put_boards(pair, within='in'):
    names = pair.put(board_files(), with_folder, within)
    for folder in ('bre', 'csv', 'pbn'):
        names += pair.put(plain_files(CORPUS / folder), lambda path: 'seed_' + with_folder(path), within)
    names += pair.put(plain_files(CORPUS / 'fixed_records'), named_by_format, within)
    return [f'{within}/{name}' for name in names]


def put_imports(pair):
    files = plain_files(DATA / 'pbn') + plain_files(DATA / 'pbn_import') + plain_files(CORPUS / 'pbn_import')
    return ['in/' + name for name in pair.put(files, lambda path: f'{path.parts[-3]}_{with_folder(path)}', 'in')]


# ---- Board files

def converted(target):
    def case(pair):
        names = put_boards(pair)
        pair.run('--yes', 'convert', *names, pair.make_folder('out'), '--to', target)
        pair.run('history', '--list')
    return f'every board file to {target}', case


def imported(target):
    def case(pair):
        names = put_imports(pair)
        pair.run('--yes', 'convert', *names, pair.make_folder('out'), '--to', target, '--import')
    return f'every PBN file imported, to {target}', case


def shown(part):
    def case(pair):
        for name in put_boards(pair)[part::SHOWN_PARTS]:
            pair.run('show', name)
    return f'every board file shown, part {part + 1}', case


def looked_at(pair):
    """Statistics, the hands as text, paper."""
    files = [path for path in board_files() if path.stem in ('evening', 'long_suits', 'double_dummy', 'accents_1252')]
    for name in pair.put(files, with_folder):
        pair.run('stats', name)
        pair.run('--yes', 'text', name, name + '.text', '--ten', '10', '--header', 'Zürich €')
        pair.run('--yes', 'print', name, name + '.pdf', '--stats', '--paper', 'a4')
    pair.run('--yes', 'print', name, 'cards.pdf', '--score-cards', '--paper', 'letter', '--national', '6')


def large(pair):
    """640 boards by way of every format; an endless line; a number that is none."""
    pair.run('--yes', 'generate', 'all.pbn', '--last', '640', '--history', 'off', *SEEDS)
    for one, other in itertools.pairwise(['pbn', *FORMATS[1:], 'pbn']):
        source = 'all' if one == 'pbn' else 'from'
        pair.run('--yes', '--overwrite', 'convert', f'{source}.{one}', f'from.{other}', '--history', 'off')
    pair.write('line.csv', b'x' * 3_000_000)
    pair.write('huge.csv', b'"99999999999999999999","N"\r\n' * 20000)
    pair.write('brackets.pbn', b'[' * 1_000_000)
    for name in ('line.csv', 'huge.csv', 'brackets.pbn'):
        pair.run('show', name)
    pair.run('show', 'brackets.pbn', '--import')
    pair.run('stats', 'from.pbn')


def analysed(pair):
    pair.put([DATA / 'bri/evening.bri'])
    pair.run('--yes', 'analyze', 'evening.bri', 'known.pbn', '--solver', 'dds')
    pair.run('--yes', 'text', 'known.pbn', 'known.txt')


# ---- Names, and what is wrong

def odd_names(pair):
    for name in ('Zoë’s Übung.pbn', '結果 表.csv', 'with  two blanks.dge', 'Ω/ß %APPDATA% $HOME.bri', "it's;a&b.bre"):
        source = next((DATA / name[-3:]).glob(f'evening.{name[-3:]}'), DATA / 'pbn/club_night.pbn')
        pair.put([source], lambda _, name=name: name.split('/')[-1], name.rpartition('/')[0] or '.')
        pair.run('--yes', 'convert', name, name + '.pbn')
        pair.run('show', name + '.pbn')


WRONG = [
    [], ['nonsense'], ['help', 'nonsense'], ['--nonsense', 'history'], ['show'], ['show', 'missing.pbn'],
    ['show', 'folder'], ['show', 'missing/one.pbn'], ['show', 'good.pbn/one.pbn'], ['show', 'good.xyz'], ['show', ''],
    ['show', 'good.pbn', '--board', '0'], ['show', 'good.pbn', '--board', '99999999999999999999'],
    ['show', 'good.pbn', '--board', '1e1'], ['show', 'good.pbn', '--board', '640'],
    ['convert', 'good.pbn', 'good.xyz'], ['convert', 'good.pbn', 'missing/one.bri'], ['convert', 'good.pbn', 'folder'],
    ['convert', 'good.pbn', 'folder.bri'], ['convert', 'good.pbn', 'out.bri'], ['--yes', 'convert', 'good.pbn', 'taken.bri'],
    ['convert', 'good.pbn', 'good.pbn', 'folder', '--to', 'bri'], ['--yes', 'convert', 'good.pbn', 'good.pbn', 'folder', '--to', 'bri'],
    ['convert', 'good.pbn', 'good.pbn', 'out.bri'], ['convert', 'good.pbn', 'missing', '--to', 'bri'],
    ['convert', 'good.pbn', 'folder', '--to', 'xyz'], ['convert', 'good.pbn', 'out.pbn', '--first', '3'],
    ['generate', 'out.pbn', '--last', '641', *SEEDS], ['generate', 'out.pbn', '--first', '9', '--last', '3', *SEEDS],
    ['generate', 'out.pbn', '--seedr', '12', '--seedo', '34'], ['generate', 'out.pbn', '--lfsr', '0'],
    ['generate', 'out.pbn', '--generator', 'other'], ['text', 'good.pbn', 'out.bri'], ['text', 'good.pbn', 'folder'],
    ['print', 'good.pbn', 'folder'], ['--yes', 'print', 'good.pbn', 'missing/out.pdf'],
    ['print', 'good.pbn', 'out.pdf', '--per-page', '11'], ['audit', 'missing.txt'], ['audit', 'folder'], ['audit', 'good.pbn'],
    ['audit', 'good.pbn', '--sha256', 'xyz'], ['history', 'more'], ['--machine', 'nonsense', 'sort'],
    ['--machine', 'simulated,speed=fast', 'sort'], ['--machine', 'simulated,nonsense=1', 'sort'], ['--machine', 'replay:missing', 'sort'],
    ['--machine', 'simulated,pack=missing.pbn', 'sort'], ['--trace-without-hands', 'sort'], ['--machine', '', 'sort'],
    ['--machine', 'simulated', '--trace', 'folder', 'sort', '--auto'], ['--machine', 'simulated', 'deal', 'missing.pbn'],
    ['poker', 'show', 'missing.pkr'], ['poker', 'show', 'good.pbn'], ['poker', 'new', 'out.pbn'], ['poker', 'new', 'out.pkr', '--deals', '101'],
    ['service-file', 'good.pbn'], ['service-file', 'missing.txt'], ['txt-hex', 'missing.txt'], ['txt-hex', 'good.pbn'],
    ['boot-c', 'missing.adb', 'out.c'], ['firmware-file', 'missing.dsp', 'missing.bit', 'out.adc'],
]


def wrong(pair):
    pair.put([DATA / 'pbn/club_night.pbn'], lambda _: 'good.pbn')
    for folder in ('folder', 'folder.bri'):
        pair.make_folder(folder)
    pair.write('taken.bri', b'old')
    for words in WRONG:
        pair.run(*words)


def told(pair):
    """All that help tells."""
    pair.run('--version')
    pair.run('--help')
    for name in ('generate', 'convert', 'deal', 'poker read', 'maintain record', 'audit', 'print'):
        pair.run('help', *name.split())


# ---- Generating, the log, the history, the settings

def generated(pair):
    for digit, target in enumerate(FORMATS, 1):
        # Other seeds each time: of the same ones all would be rejected as played.
        pair.run('--yes', 'generate', f'big.{target}', '--last', '36', '--seedr', SEED, '--seedo', str(digit) * 40)
        pair.run('--yes', 'generate', f'own.{target}', '--first', '5', '--last', '20', '--lfsr', str(digit) * 32)
    pair.run('--yes', '--overwrite', 'generate', 'big.pbn', '--last', '640', '--inner', 'on', *SEEDS)
    pair.run('history', '--list')
    log, = (path.name for path in (pair.folders[systems.LINUX] / 'data').glob('Log_*.txt'))
    pair.run('audit', f'data/{log}')


def audited(pair):
    for folder in (CORPUS / 'log', DATA / 'log'):
        for name in pair.put(plain_files(folder), with_folder):
            pair.run('audit', name)


def histories(pair):
    pair.put([DATA / 'bri/evening.bri', DATA / 'dge/evening.dge'])
    for path in plain_files(CORPUS / 'history'):
        pair.put([path], lambda _: 'history1.dat', 'data')
        pair.run('history', '--list')
        pair.run('--yes', '--overwrite', 'convert', 'evening.bri', 'out.pbn')
        pair.run('--yes', '--overwrite', 'convert', 'evening.dge', 'out.bri')
        pair.run('history', '--list')
        pair.compare_files()


def settings(pair):
    for path in plain_files(CORPUS / 'settings'):
        pair.put([path], lambda _: 'settings.ini')
        pair.run('--yes', '--overwrite', 'generate', 'out.bri', *SEEDS)
        pair.compare_files()


# ---- Poker, service, the factory's files

def poker(pair):
    for name in pair.put(plain_files(CORPUS / 'pkr')):
        pair.run('poker', 'show', name)
        pair.run('--yes', 'poker', 'print', name, name + '.pdf', '--paper', 'a4')
    pair.run('poker', 'new', 'empty.pkr', '--empty', '--deals', '3', '--event', 'Łódź', '--site', 'a "b"', '--date', '1 May')
    pair.run('--machine', MACHINE, 'poker', 'deal', 'two_deals.pkr', '--auto')


def service_files(pair):
    for name in pair.put(plain_files(CORPUS / 'service_file'), lambda path: path.name + '.txt'):
        pair.run('service-file', name, '--picture', name + '.png', '--labels', name + '.labels.png')


def factory(pair):
    for name in pair.put(plain_files(CORPUS / 'text_hex')):
        pair.run('txt-hex', name)
    pair.write('boot.adb', bytes(range(256)) * 3)
    pair.run('boot-c', 'boot.adb', 'boot.c')
    pair.write('code.dsp', bytes(range(256)) * 20)
    pair.write('logic.bit', b'\x02\x0d\x0a\x1a' * 13745 + b'\x00')
    pair.run('firmware-file', 'code.dsp', 'logic.bit', 'new.adc')


# ---- The simulated machine

def dealt(pair):
    pair.put([DATA / 'bri/evening.bri'])
    pair.run('--machine', MACHINE, '--trace', 'deal.trace', 'deal', 'evening.bri', '--auto', '--copies', '2')
    pair.run('--machine', MACHINE + ',fault=2:10:54', 'deal', 'evening.bri', '--auto')
    pair.run('--machine', MACHINE + ',pack=evening.bri', '--trace', 'read.trace', 'read', 'back.pbn', '--last', '3', '--auto')
    pair.run('--machine', MACHINE, '--trace', 'sort.trace', '--trace-without-hands', 'sort', '--auto')


def maintained(pair):
    pair.run('--machine', MACHINE, 'maintain', 'info')
    pair.run('--yes', '--machine', MACHINE, 'maintain', 'parameters', '--set', 'pos_x=61')
    pair.run('--machine', MACHINE, 'maintain', 'picture', 'card.png')
    pair.run('--machine', MACHINE, 'maintain', 'recognise', '--labels', 'labels.png')
    pair.run('--yes', '--machine', MACHINE, 'maintain', 'service-file')


def replayed(pair):
    pair.put([DATA / 'bri/evening.bri'])
    for name in pair.put(plain_files(CORPUS / 'replay')):
        pair.run('--machine', 'replay:' + name, 'deal', 'evening.bri', '--auto')


# ---- What one has written, used by both

def handed_over(maker):
    def case(pair):
        made = pair.folders[maker]
        for words in (['generate', 'Łódź 1.pbn'], ['generate', 'two.bri', '--last', '36', '--generator', 'morvane'],
                      ['poker', 'new', 'order.pkr'], ['generate', 'three.csv', '--last', '8']):
            assert maker.run(made, '--yes', *words)[0] == 0, words
        pair.hand_over(maker)
        log, = (path.name for path in (made / 'data').glob('Log_*.txt'))
        assert pair.run('audit', f'data/{log}') == 0
        for words in (['history', '--list'], ['show', 'Łódź 1.pbn'], ['stats', 'two.bri'], ['poker', 'show', 'order.pkr'],
                      ['generate', 'next.pbn', '--history', 'on', *SEEDS], ['convert', 'two.bri', 'two.dge'],
                      ['audit', f'data/{log}']):
            assert pair.run('--yes', *words) == 0, words
    return f'data folder, settings and sets of {maker.name}, used by both', case


CASES = [
    ('the simulated machine serviced', maintained), ('the simulated machine deals, reads and sorts', dealt),
    *(converted(target) for target in FORMATS), *(imported(target) for target in ('pbn', 'csv')),
    *(shown(part) for part in range(SHOWN_PARTS)),
    ('statistics, texts and paper', looked_at), ('large files', large), ('analysis', analysed),
    ('names beyond ASCII', odd_names), ('wrong input', wrong), ('help', told),
    ('generating from seeds', generated), ('audit of every log', audited), ('every history', histories),
    ('every settings file', settings), ('poker orders', poker), ('service files', service_files),
    ('files of the factory', factory), ('traces replayed', replayed),
    *(handed_over(maker) for maker in systems.BOTH),
]
