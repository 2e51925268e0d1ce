"""What two runs cannot have in common, and nothing else, is masked before they are compared."""

import re
import shutil
import subprocess

MASKED = [
    'the folder in which a program runs, and "\\" for "/" in a line with such a path',
    'CR LF for LF in what a program prints and in the settings: text that is the system\'s own ends its lines so on Windows',
    'times of day and dates of a log, a service file and an audit, and milliseconds since midnight at a start',
    'in the settings the pool of random bits and its counter: they take in the times between events',
    'in a trace the instants and durations, when it began, the bytes of what is sent (a chance number scrambles them),',
    '  and the polls of a busy machine, as many as there is time for',
    'in a log the random bits collected, and the pool and the seed of a set of no given seeds: chance',
    'the seconds that an analysis took',
    'the machine\'s temperature and voltage, which the simulated one lets drift with time',
    'in the usage page the names of the ways to the machine: a serial port and a cable by itself are none on Windows',
    'of a PDF everything but its text, by pdftotext: the systems have other fonts',
]

TIME = re.compile(rb'\b\d{1,2}:\d{2}:\d{2}(:? [AP]M)')
DATE = re.compile(rb'\b20\d\d-\d\d-\d\d\b')
SLASHED = re.compile(rb'\b\d{1,2}/\d{1,2}/20\d\d\b')
START = re.compile(rb'(Start up parameters: \d+),\d+')
BEGAN = re.compile(rb'(?m)^(# began ).*$')
INSTANT = re.compile(rb'(?m)^\d+\.\d{6} \d+\.\d{6} ')
SENT = re.compile(rb'(?m)^(<instant> Write .*bytes=)[0-9A-F]+')
POLLED = re.compile(rb'(?m)^<instant> Write .* ; CmdStatus\n<instant> Read .* ; status: busy.*\n')
CHANCE = re.compile(rb'(?m)^(  (?:New random bits collected|Seedm|Seed): ).*?\r$')
TOOK = re.compile(rb'(?m)^(    DDS: .*)  \d+\.\ds\r$')
POOL = re.compile(rb'(?m)^(Seedm(?:_counter)?) = .*$')
WAYS = re.compile(rb'usb \(where none is named\), (?:usb:SERIAL, usb:VVVV:PPPP,\s+serial:PATH, )?replay:FILE')
DRIFT = re.compile(rb'\b(Inside_temp|Supply_volt): \d+\.\d')
DRIFT_LOGGED = re.compile(rb'(Basic info: .*),\d+\.\d,\d+\.\d')


def of_paths(data, folder):
    """Both systems' folders lie in one; in a line with such a path the separators become those of one system."""
    root = rb'(?:[A-Za-z]:)?' + rb'[\\/]'.join(map(re.escape, str(folder.parent).encode().split(b'/'))) + rb'[\\/](?:linux|windows)\b'
    lines = re.sub(root, b'<folder>', data).split(b'\n')
    return b'\n'.join(line.replace(b'\\', b'/') if b'<folder>' in line else line for line in lines)


def of_times(data):
    data = TIME.sub(rb'<time>\1', DATE.sub(b'<date>', SLASHED.sub(b'<date>', data)))
    # The hour may change from morning to afternoon between the two.
    return START.sub(rb'\1,<start>', data.replace(b' AM', b' <half>').replace(b' PM', b' <half>'))


def of_drift(data):
    return DRIFT_LOGGED.sub(rb'\1,<drift>', DRIFT.sub(rb'\1: <drift>', data))


def of_printed(data, folder):
    data = WAYS.sub(b'<ways to the machine>', data.replace(b'\r\n', b'\n'))
    return of_drift(of_times(of_paths(data, folder)))


def of_log(data, folder):
    data = TOOK.sub(rb'\1  <seconds>\r', CHANCE.sub(rb'\1<chance>\r', data))
    return of_drift(of_times(of_paths(data, folder)))


def of_settings(data, folder):
    return POOL.sub(rb'\1 = <pool>', of_paths(data.replace(b'\r\n', b'\n'), folder))


def of_trace(data, _):
    lines = INSTANT.sub(b'<instant> ', BEGAN.sub(rb'\1<time>', data))
    return SENT.sub(rb'\1<scrambled>', POLLED.sub(b'', lines))


def of_pdf(data, _):
    tool = shutil.which('pdftotext')
    if tool is None:
        raise SystemExit('It needs pdftotext (poppler-utils).')
    # Without its layout, which depends on the widths of the letters.
    return subprocess.run([tool, '-raw', '-', '-'], input=data, capture_output=True, check=True).stdout


def of_service_file(data, folder):
    return of_log(data, folder)


KINDS = [('Log_*.txt', of_log), ('Service_file_*.txt', of_service_file), ('settings.ini', of_settings),
         ('*.trace', of_trace), ('*.pdf', of_pdf)]


def of_file(path, folder):
    """What is compared of a file; of most all their bytes."""
    data = path.read_bytes()
    for pattern, mask in KINDS:
        if path.match(pattern):
            return mask(data, folder)
    return data
