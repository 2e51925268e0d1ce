#!/usr/bin/env python3
"""Of the guide's checks: each finds what it is there for, in a small guide that is whole until one thing is broken."""

import pathlib
import struct
import tempfile
import unittest

import cpp_sources
import guide_knows
import guide_links

PNG = b'\x89PNG\r\n\x1a\n' + struct.pack('>I4sII', 13, b'IHDR', 3, 2)
INDEX = '<h1 id="a">A</h1><a href="stops.html#jam">J</a> <img src="pictures/P.png" alt="a window">'
STOPS = ('<h1>Stops</h1><h2 id="jam">Jams</h2><a href="index.html">back</a> <strong>Load Error:</strong> '
         '<table><tr><td>1 to 2</td><td>Card Jam Error</td></tr><tr><td>3 to 240</td><td>Undefine Error</td></tr>'
         '<tr><td>64</td><td>No number</td></tr><tr><td>65</td><td>Another one</td></tr></table>'
         'A <em>Window</em>, and Check History File. <code>morvane-cli --yes poker deal</code>')
REFERENCE = ('<h2>poker deal</h2><pre><code>morvane-cli poker deal IN [--auto]</code></pre>'
             '<h2>Options of every command</h2><code>--settings FILE</code> <code>--yes</code>')
SETTINGS = '<h1>S</h1><a href="index.html">back</a> <code>New_Inner</code> <strong>Dealing</strong>'


class Guide(unittest.TestCase):
    """A guide of three pages, and sources of which it knows everything."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write('guide/pictures/P.png', PNG)
        self.write('guide/index.html', INDEX + '<a href="settings.html">S</a><a href="command-reference.html">R</a>')
        self.write('guide/stops.html', STOPS)
        self.write('guide/settings.html', SETTINGS)
        self.write('guide/command-reference.html', REFERENCE + '<a href="index.html">back</a>')
        self.write('README.md', 'Run\n\n    morvane-cli poker deal a.pkr --auto\n')
        self.write('pages.txt', '# order\nindex\nstops | Part\nsettings\n')
        self.write('src/program/setting_keys.h', 'SettingKey kNewInner{kSetup, "New_Inner", "1"};')
        self.write('src/shell/preferences.h', 'kSwitches{{\n{kKey, "Box", "Check History  File", Frame::kLoad},\n}};')
        self.write('src/wire/machine_errors.cpp', '{1, 2, {"Card Jam Error", kCanGoOn}},')
        self.write('src/model/messages.cpp', 'm.Msg077 =\n  "   No number   \\r\\n"\n  "x";\nm.Msg078 =\n  " Another one\\r\\n";')
        self.write('src/cli/poker_deal_command.cpp', 'constinit const Command kPokerDealCommand{.Name = "poker deal",')
        self.write('src/kind.h', 'struct RunWords { std::string_view Title; std::string_view Error; };')
        self.write('src/kind.cpp', 'constexpr std::array<RunWords, 1> kWords{{ {"Dealing", "Load Error"}, }};')
        self.write('src/window.cpp', 'W::W() {\n  setWindowTitle("Morvane - Window[*]");\n}\n')

    def write(self, path, content):
        path = self.root / path
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else content.encode())

    def source(self, text):
        self.write('src/box.cpp', text)
        return cpp_sources.Sources(self.root)

    def change(self, path, old, new):
        text = (self.root / path).read_text()
        self.assertIn(old, text)
        self.write(path, text.replace(old, new))

    def links(self):
        return guide_links.faults(self.root / 'guide', self.root / 'pages.txt')

    def untold(self):
        return guide_knows.faults(self.root / 'guide', self.root)


class Links(Guide):
    def test_a_whole_guide_has_no_faults(self):
        self.assertEqual(self.links(), [])

    def test_a_dead_anchor(self):
        self.change('guide/stops.html', 'id="jam"', 'id="jams"')
        self.assertEqual(self.links(), ['index.html: there is no stops.html#jam'])

    def test_a_dead_link(self):
        self.change('guide/stops.html', 'index.html', 'contents.html')
        self.assertEqual(self.links(), ['stops.html: there is no contents.html'])

    def test_a_picture_that_is_missing(self):
        (self.root / 'guide/pictures/P.png').unlink()
        self.assertEqual(self.links(), ['index.html: there is no picture pictures/P.png'])

    def test_a_sharp_picture_that_is_missing(self):
        self.change('guide/index.html', 'alt=', 'srcset="pictures/P.png 1x, pictures/Q.png 2x" alt=')
        self.assertEqual(self.links(), ['index.html: there is no picture pictures/Q.png'])

    def test_a_picture_without_words(self):
        self.change('guide/index.html', 'a window', '')
        self.assertEqual(self.links(), ['index.html: picture pictures/P.png has no words'])

    def test_a_page_that_was_not_made(self):
        self.write('guide/command-reference.html', REFERENCE + '<a href="index.html">back</a>')
        self.write('README.md', 'Run\n\n    morvane-cli poker deal a.pkr --auto\n')
        self.write('pages.txt', 'index\nstops\nsettings\npoker\n')
        self.assertEqual(self.links(), ['the page poker is missing'])

    def test_a_page_that_nobody_finds(self):
        self.change('guide/index.html', 'settings.html', 'stops.html')
        self.assertEqual(self.links(), ['no page leads to settings.html'])

    def test_an_anchor_that_is_there_twice(self):
        self.change('guide/stops.html', '<h1>', '<h1 id="jam">')
        self.assertEqual(self.links(), ['stops.html: two places are called #jam'])


class Knowledge(Guide):
    def test_a_whole_guide_knows_all(self):
        self.assertEqual(self.untold(), [])

    def test_a_window(self):
        self.change('guide/stops.html', '<em>Window</em>', 'Window')
        self.assertEqual(self.untold(), ['the window "Window" of src/window.cpp is not told'])

    def test_a_window_of_a_kind_of_run(self):
        self.change('guide/settings.html', 'Dealing', 'Reading')
        self.assertEqual(self.untold(), ['the window "Dealing" of the tables of words is not told'])

    def test_a_box_whose_caption_is_only_a_part_of_what_is_told(self):
        self.source('void F() {\n  program.ShowMessage(text, kOk, "Load");\n}\n')
        self.assertEqual(self.untold(), ['the box "Load" of src/box.cpp is not told'])

    def test_a_box_whose_caption_cannot_be_told(self):
        self.source('void F() {\n  program.ShowMessage(text, kOk, Made());\n}\n')
        self.assertEqual(self.untold(),
                         ['the caption of a box in src/box.cpp cannot be told: src/box.cpp: Made()'])

    def test_a_setting(self):
        self.change('guide/settings.html', '<code>New_Inner</code>', 'New_Inner')
        self.assertEqual(self.untold(), ['the setting New_Inner is not told'])

    def test_a_preference(self):
        self.change('guide/stops.html', 'Check History File', 'Check History')
        self.assertEqual(self.untold(), ['the preference "Check History File" is not told'])

    def test_a_code_with_another_text(self):
        self.change('src/wire/machine_errors.cpp', '{1, 2,', '{1, 1,')
        self.assertEqual(self.untold(), ['the code 2, "Undefine Error", is told as Card Jam Error'])

    def test_a_code_that_is_left_out(self):
        self.change('guide/stops.html', '3 to 240', '4 to 240')
        self.assertEqual(self.untold(), ['the code 3, "Undefine Error", is told as None'])

    def test_a_code_of_a_wrong_board(self):
        self.change('src/model/messages.cpp', 'Another one', 'A third one')
        self.assertEqual(self.untold(), ['the code 65, "A third one", is told as Another one'])

    def test_a_box_in_quotation_marks(self):
        self.source('void F() {\n  program.ShowMessage(text, kOk, "Sort");\n}\n')
        self.change('guide/stops.html', 'A <em>', 'A box "Sort", a <em>')
        self.assertEqual(self.untold(), [])

    def test_a_command_that_is_told_with_another_first_word(self):
        self.change('src/cli/poker_deal_command.cpp', '"poker deal"', '"deal"')
        self.assertEqual(self.untold(), ['the command deal is not told'])

    def test_an_option_of_another_command(self):
        self.change('guide/stops.html', '--yes poker deal', '--settings a.ini poker deal --first 1')
        self.assertEqual(self.untold(), ['stops.html: poker deal has no --first: '
                                         'morvane-cli --settings a.ini poker deal --first 1'])

    def test_an_option_that_is_told_without_the_program(self):
        self.change('guide/stops.html', '</code>', '</code> <code>poker deal --first N</code>')
        self.assertEqual(self.untold(), ['stops.html: poker deal has no --first: poker deal --first N'])

    def test_an_option_of_the_next_program_of_a_line(self):
        self.change('guide/stops.html', '--yes poker deal', 'poker deal a.pkr | sort --key 2')
        self.assertEqual(self.untold(), [])

    def test_an_option_of_every_command_that_is_none(self):
        self.change('README.md', 'poker deal a.pkr --auto', '--data=a --help')
        self.assertEqual(self.untold(), ['README.md: Options of every command has no --data: morvane-cli --data=a --help'])

    def test_an_option_behind_the_end_of_a_line_that_goes_on(self):
        self.change('README.md', '--auto', '\\\n        --manual')
        self.assertEqual([fault.split(':')[1] for fault in self.untold()], [' poker deal has no --manual'])

    def test_an_option_in_a_sentence_of_the_readme(self):
        self.change('README.md', 'Run', 'Run `morvane-cli poker deal --last 3`')
        self.assertEqual(self.untold(), ['README.md: poker deal has no --last: morvane-cli poker deal --last 3'])

    def box(self, text):
        self.source('void F() {\n  Tell("   Card " + number + " is gone.   \\r\\n" "  Look \\"there\\"  ");\n  Tell("Else");\n}\n')
        self.change('guide/stops.html', '<table>', '<table><tr><th>Box</th><th>What it says</th></tr>'
                    f'<tr><td>"A"</td><td>{text}</td></tr></table><table><tr><td>"None"</td><td>"says this"</td></tr>')
        return self.untold()

    def test_words_of_a_box(self):
        self.assertEqual(self.box('one of "Card ... is gone. Look", "Else", or more ("Card ...")'), [])

    def test_words_with_quotation_marks_within(self):
        self.assertEqual(self.box('"Look "there""'), [])

    def test_words_that_no_box_says(self):
        self.assertEqual(self.box('"Card ... is lost"'), ['stops.html: no box says "Card ... is lost"'])

    def test_words_of_two_boxes_that_are_far_apart(self):
        self.write('src/other.cpp', 'const char* kOther = "Other";')
        self.assertEqual(self.box('"Other ... Else"'), ['stops.html: no box says "Other ... Else"'])

    def test_a_page_of_help_that_is_not_there(self):
        self.write('src/shell/help_pages.h', 'std::string_view kFirst = "first";\n'
                   'std::array kPages{WindowPage{"Window", "stops", "Word"}, BoxPage{"Other", "windows"},\n'
                   'WindowPage{"Third", kFirst}};')
        self.assertEqual(self.untold(), ['F1 in Other opens windows, which is no page',
                                         'F1 in Third opens first, which is no page'])


class Captions(Guide):
    """However a call says its caption."""

    def captions(self, text):
        words, unresolved = cpp_sources.captions(self.source(text))
        self.assertEqual(unresolved, [])
        return set(words)

    def test_a_literal_of_several_lines_in_a_call_with_brackets(self):
        self.assertEqual(self.captions('void F() {\n  if (program_.Ask(Fill("a, (b", "c"), 0, "Load "\n "E") == 1) G();\n}\n'),
                         {'Load E'})

    def test_a_constant(self):
        self.assertEqual(self.captions('constexpr const char* kTitle = "T";\nvoid F() {\n  p.ShowMessage(t, 0, kTitle);\n}\n'),
                         {'T'})

    def test_either_of_two(self):
        self.assertEqual(self.captions('void F() {\n  p.Ask(t, 0, one ? "A" : "B");\n}\n'), {'A', 'B'})

    def test_what_the_callers_give(self):
        self.assertEqual(self.captions('void Tell(Program& p, const char* title) {\n  p.ShowMessage(t, 0, title);\n}\n'
                                       'void F() {\n  Tell(p, "A");\n}\nvoid G() {\n  Tell(p, "B");\n}\n'), {'A', 'B'})

    def test_a_field(self):
        self.assertEqual(self.captions('struct Source {\n  const char* Title;\n};\nconstexpr Source kOne{"One"};\n'
                                       'void F() {\n  p.ShowMessage(t, 0, source.Title);\n}\n'), {'One'})

    def test_a_field_of_the_tables_of_words(self):
        self.assertEqual(self.captions('void F() {\n  p.ShowMessage(t, 0, std::string(run.Words().Error));\n}\n'),
                         {'Load Error'})

    def test_no_comment_and_no_declaration(self):
        self.assertEqual(self.captions('// p.ShowMessage(t, 0, "A")\n'
                                       'void ShowMessage(const std::string& text, int flags, const std::string& title);\n'),
                         set())


if __name__ == '__main__':
    unittest.main()
