"""Compares the Python module, and with it the shared library, with linealis-cli: library_test.py LINEALIS-CLI.

LINEALIS_FORMS is the number of random forms (60)."""

import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import threading
import unittest

import linealis

cli = sys.argv.pop()
os.environ["SOURCE_DATE_EPOCH"] = "1000000000"


def run(*arguments, status=0):
    """Returns what linealis-cli writes: its output or, for another status, its message."""
    done = subprocess.run([cli, *arguments], capture_output=True)
    if done.returncode != status:
        raise AssertionError(f"{arguments}: status {done.returncode}: {done.stderr.decode()}")
    return done.stderr.decode().strip().removeprefix("linealis-cli: ") if status else done.stdout


def random_values(sheet, dice):
    """Returns values for some controls, in an order in which a person might set them."""
    values = {}
    controls = sheet.controls()
    for control in dice.sample(controls, dice.randrange(8)):
        if control.type in ("popup", "radio"):
            value = dice.choice([*sheet.items(control.name), "#0"])
        elif control.type == "check":
            value = dice.choice([True, False, "yes", "0"])
        elif control.type == "color":
            value = dice.choice(["#123", "#6080C0", "gray", "white"])
        else:
            value = dice.choice([0.5, 2, "1.25", "5mm", "1/4in", "abc", "", "-1", "grün & <\"\\>"])
        values[dice.choice([control.name, control.alias.replace("-", "_")])] = value
    return values


class Library(unittest.TestCase):
    def compare(self, kind, values):
        sheet = linealis.Sheet(kind, **values)
        texts = {key.replace("_", "-"): "on" if value is True else "off" if value is False else value for key, value in values.items()}
        actions = [word for key, value in texts.items() for word in ("--set", f"{key}={value}")]
        for format in ("pdf", "svg", "dxf"):
            self.assertEqual(sheet.write(format), run("generate", kind, *actions, "--format", format, "-o", "-"), values)
        self.assertEqual(sheet.form(), json.loads(run("form", kind, *actions)), values)
        self.assertEqual(sheet.link(), run("link", kind, *actions).decode().rstrip("\n"), values)
        self.assertEqual(sheet.settings(), run("save", kind, *actions, "-o", "-"), values)
        found = json.loads(run("generate", kind, *actions, "--check", "--json"))
        given = {(warning.id, warning.control, warning.text) for warning in sheet.warnings() if warning.id != "markers"}
        self.assertEqual(given, {(row["id"], row["control"], row["text"]) for row in found if row["id"] != "markers"}, values)
        for twin in (linealis.Sheet(sheet.link()), linealis.Sheet.from_form(sheet.form()), linealis.Sheet.from_form(sheet.svg())):
            self.assertEqual(twin.pdf(), sheet.pdf(), values)

    def test_makes_what_the_command_line_makes(self):
        dice = random.Random(1)
        names = [kind.name for kind in linealis.kinds()]
        for name in names:
            self.compare(name, {})
        for _ in range(int(os.environ.get("LINEALIS_FORMS", "60"))):
            name = dice.choice(names)
            self.compare(name, {"paper_size": "A6", **random_values(linealis.Sheet(name), dice)})

    def test_makes_pictures_and_presets(self):
        sheet = linealis.Sheet("squares-5mm")
        self.assertEqual(sheet.png(40, transparent=True),
                         run("generate", "squares-5mm", "--format", "png", "--dpi", "40", "--transparent", "-o", "-"))
        self.assertEqual(sheet._repr_svg_(), run("generate", "squares-5mm", "--format", "svg", "-o", "-").decode())
        self.assertEqual([[row.name, row.kind, row.title] for row in linealis.presets()],
                         [line.split("\t") for line in run("presets").decode().splitlines()])
        self.assertEqual(linealis.schema("grid"), json.loads(run("schema", "grid")))
        with tempfile.TemporaryDirectory() as folder:
            sheet.save(pathlib.Path(folder, "page.svg"))
            self.assertEqual(pathlib.Path(folder, "page.svg").read_text(), sheet.svg())

    def test_makes_the_pads_of_the_command_line(self):
        dice = random.Random(2)
        names = [kind.name for kind in linealis.kinds()]
        for _ in range(int(os.environ.get("LINEALIS_FORMS", "60"))):
            shape, sources = dice.choice(["pad", "table", "booklet", "poster"]), [dice.choice(names)]
            options = {"copies": dice.choice([1, 1, 2])}
            if shape == "poster":
                options |= {"poster": dice.choice(["A5", "letter"]), "overlap": dice.choice([None, "0", "1/4in"])}
            else:
                options |= {"numbers": dice.random() < 0.5, "dates": dice.choice([None, "2024-02-28"]), "pages": dice.choice([None, 7])}
            if shape == "booklet":
                options |= {"booklet": True, "creep": dice.choice([None, "0.1mm"])}
            elif shape != "poster":
                options |= {"up": dice.choice([1, 2, 4]), "back": dice.choice([None, *names])}
            if shape in ("pad", "booklet"):
                sources += dice.sample(names, dice.randrange(3))
            with tempfile.TemporaryDirectory() as folder, self.subTest(sources=sources, **options):
                words = []
                for name, value in options.items():
                    words += [f"--{name}"] if value is True else [f"--{name}", str(value)] if value else []
                if shape == "table":
                    options["table"] = "top-margin,background-color\n1,\n\"2\",gray\n1.5,#FFE\n"
                    pathlib.Path(folder, "t.csv").write_text(options["table"])
                    words += ["--table", f"{folder}/t.csv"]
                if options.get("back"):
                    options["back"] = linealis.Sheet(options["back"], paper_size="A4")
                wanted = run("pad", *sources, "--set", "paper-size=A4", *words, "-o", "-")
                made = linealis.pad(*(linealis.Sheet(source, paper_size="A4") for source in sources), **options)
                self.assertEqual(made, wanted)
                self.assertEqual(linealis.Sheet.from_form(made).link(), linealis.Sheet(sources[0], paper_size="A4").link())

    def test_refuses_pads_that_make_no_sense(self):
        grid, small = linealis.Sheet("grid", paper_size="A4"), linealis.Sheet("lined", paper_size="A5")
        for sheets, options, message in [
            ([], {}, "a pad needs a sheet"),
            ([grid], {"up": 3}, "unknown number of pages on a side '3'; possible: 1, 2, 4"),
            ([grid], {"copies": 101}, "copies is 101, but must be a number from 1 to 100"),
            ([grid], {"pages": 0}, "pages is 0, but must be a number from 1"),
            ([grid], {"pages": 10001}, "pages is 10001, but must be a number from 1 to 10000"),
            ([grid], {"creep": "1mm"}, "creep goes with booklet alone"),
            ([grid], {"booklet": True, "creep": "wide"}, "creep is 'wide', but must be a length such as 5mm or 1/4in, at most 5 mm"),
            ([grid], {"dates": "today"}, "dates is 'today', but must be a date such as 2026-12-31"),
            ([grid], {"poster": "A5", "back": grid}, "poster does not go with back"),
            ([grid, grid], {"poster": "A5"}, "poster takes one page, but 2 are given"),
            ([grid, grid], {"table": "top-margin\n1\n"}, "table takes one sheet, but 2 are given"),
            ([grid], {"table": ""}, "the table: has no rows below its header"),
            ([grid], {"table": "units\ncm\nkm\n"}, "the table, row 2: unknown item of PopupUnits 'km'; possible: cm, inches, #0 to #1"),
            ([grid], {"back": small}, "the pages of a sheet must be of one size, but sheet 1 has 595 by 842 points and the back 421 by 595"
                                      " points"),
        ]:
            with self.subTest(message), self.assertRaises(linealis.InvalidInput) as raised:
                linealis.pad(*sheets, **options)
            self.assertEqual(str(raised.exception), message)

    def test_schema_describes_the_forms(self):
        for kind in linealis.kinds():
            schema, form = linealis.schema(kind.name), linealis.Sheet(kind.name).form()
            properties = schema["properties"]["controls"]["properties"]
            self.assertEqual(properties.keys(), {*form["controls"], *form["aliases"]})
            for alias, name in form["aliases"].items():
                self.assertEqual(properties[alias], properties[name])
                [prefix, definition] = properties[name]["$ref"].split("#/$defs/")
                described, control = schema["$defs"][definition], form["controls"][name]
                value = described["anyOf"][0]
                self.assertEqual(described["default"], linealis.Sheet(kind.name)[alias])
                self.assertEqual(value, described["anyOf"][1]["properties"]["value"])
                if "items" in control:
                    self.assertEqual(value["anyOf"][0]["enum"], control["items"])
                self.assertIn(control["value"], value["enum"] if control["type"] == "check" else [control["value"]])
        whole = linealis.schema()
        self.assertEqual([each["properties"]["kind"]["const"] for each in whole["oneOf"]], [kind.name for kind in linealis.kinds()])

    def test_fits_axes_and_draws_markers(self):
        fitted = linealis.Sheet("graph").fit(x=(0, 250), y=(0.1, 1000, "log"), fineness="fine")
        self.assertEqual(fitted.pdf(), run("generate", "graph", "--x-range", "0:250", "--y-range", "0.1:1000:log",
                                           "--fineness", "fine", "-o", "-"))
        wizard = linealis.Sheet("graph").wizard(min_x=0, max_x=24, minor_x_spacing=".5", major_x_spacing=2)
        self.assertEqual(wizard.pdf(), run("generate", "graph", *(word for field in (
            "min-x=0", "max-x=24", "minor-x-spacing=.5", "major-x-spacing=2") for word in ("--wizard", field)), "-o", "-"))
        with tempfile.TemporaryDirectory() as folder:
            points = pathlib.Path(folder, "points.txt")
            points.write_text("1 2 here\n3 x there\n")
            marked = linealis.Sheet("graph", add_markers=True)
            bare = marked.pdf()
            marked.markers(points)
            self.assertEqual(marked.pdf(), run("generate", "graph", "--set", "add-markers=on", "--markers", str(points), "-o", "-"))
            self.assertNotEqual(marked.pdf(), bare)
            self.assertIn("line 2", " ".join(warning.text for warning in marked.warnings()))

    def test_refuses_as_the_command_line_does(self):
        sheet = linealis.Sheet("graph", top_margin=1.25)
        before = sheet.form()
        for call, arguments in (
                (lambda: linealis.Sheet("gird"), None),
                (lambda: sheet.set(top_margn=1), ("--set", "top-margn=1")),
                (lambda: sheet.set(units="miles"), ("--set", "units=miles")),
                (lambda: sheet.set(line_color="#12345"), ("--set", "line-color=#12345")),
                (lambda: sheet.fit(x=(5, 5)), ("--x-range", "5:5")),
                (lambda: sheet.fit(fineness="rough", x=(0, 1)), ("--fineness", "rough", "--x-range", "0:1")),
                (lambda: sheet.wizard(min_z=1), ("--wizard", "min-z=1")),
                (lambda: sheet.write("gif"), ("--format", "gif"))):
            with self.assertRaises(linealis.InvalidInput) as refused:
                call()
            if arguments:
                self.assertEqual(str(refused.exception), run("generate", "graph", *arguments, "-o", "-", status=2))
        for call in (lambda: sheet.load(b"garbage"), lambda: sheet.load(linealis.Sheet("grid").settings()), lambda: sheet.lay_over("{"),
                     lambda: sheet.lay_over({"controls": {"top-margin": 9, "units": "miles"}}), lambda: sheet.markers("no such file"),
                     lambda: sheet.set(title="a\0b")):
            self.assertRaises(ValueError, call)
        self.assertEqual(sheet.form(), before)
        self.assertEqual(sheet.load(sheet.settings()), "")
        early = pathlib.Path(__file__).parents[2] / "fuzz/corpus/Settings"
        self.assertIn("ends at field", linealis.Sheet("graph").load((early / "graph-early").read_bytes()[1:]))
        self.assertEqual(sheet["top-margin"], "1.25")

    def test_warns_of_missing_fonts(self):
        program = "import linealis; print([row.text for row in linealis.Sheet('cornell').warnings() if row.id == 'font'])"
        with tempfile.TemporaryDirectory() as folder:
            nothing = pathlib.Path(folder, "fonts.conf")
            nothing.write_text(f"<fontconfig><dir>{folder}</dir></fontconfig>")
            said = subprocess.run([sys.executable, "-c", program], env={**os.environ, "FONTCONFIG_FILE": str(nothing)},
                                  check=True, capture_output=True, text=True).stdout
        self.assertRegex(said, r"Texts in \w+ are not shown: no font is installed")
        self.assertEqual([row for row in linealis.Sheet("lined").warnings() if row.id == "font"], [])

    def test_sheets_are_independent(self):
        expected = {kind.name: linealis.Sheet(kind.name).svg() for kind in linealis.kinds()}
        faults = []

        def make():
            for name, svg in expected.items():
                if linealis.Sheet(name).svg() != svg:
                    faults.append(name)
        threads = [threading.Thread(target=make) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(faults, [])

    def test_exports_its_interface_alone(self):
        symbols = subprocess.run(["nm", "-D", "--defined-only", os.environ["LINEALIS_LIBRARY"]], capture_output=True, text=True).stdout
        exported = {line.split()[2].split("@")[0] for line in symbols.splitlines()} - {"LINEALIS_1"}
        header = (pathlib.Path(linealis.__file__).parents[2] / "linealis.h").read_text()
        self.assertEqual({name for name in exported if f" {name}(" not in header and f"*{name}(" not in header}, set())
        self.assertGreater(len(exported), 25)


unittest.main(verbosity=1)
