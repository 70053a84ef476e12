"""Printable paper: forms whose controls are set by name, and the pages that they describe.

    import linealis

    sheet = linealis.Sheet("grid", paper_size="A4", vertical_spacing="5mm")
    sheet["line-color"] = "gray"
    with open("page.pdf", "wb") as file:
        file.write(sheet.pdf())

Every control has a name, such as "EditTopMargin", and an alias, such as "top-margin"; both work everywhere, and as a keyword an
alias is written with underscores: top_margin. In a notebook, a sheet shows its page as a picture.

Different threads can use different sheets at the same time, but not one sheet.
"""

from __future__ import annotations

import ctypes
import datetime
import json
import os
from dataclasses import dataclass
from pathlib import Path
from typing import Any, Iterator, Union

__all__ = ["Control", "Error", "Format", "InvalidInput", "Kind", "Preset", "Sheet", "Warning", "formats", "kinds", "pad",
           "presets", "schema", "version"]

#: What a control can be set to: a text, a number, or, for a check box, True or False.
Value = Union[str, int, float, bool]
#: A range of data: its ends and, for a logarithmic axis, "log".
Range = Union["tuple[float, float]", "tuple[float, float, str]"]


class Error(Exception):
    """The page could not be made."""


class InvalidInput(Error, ValueError):
    """A name, value or file that is not possible. The message names what was given and what is possible, nearest first."""


@dataclass(frozen=True)
class Kind:
    """A kind of paper."""

    name: str
    title: str
    extension: str  #: of its settings files


@dataclass(frozen=True)
class Preset:
    """A paper that is ready to use."""

    name: str
    kind: str
    title: str


@dataclass(frozen=True)
class Format:
    """A file format of pages."""

    name: str
    title: str
    type: str  #: its MIME type


@dataclass(frozen=True)
class Control:
    """A control of a form."""

    name: str
    alias: str
    type: str  #: "text", "popup", "radio", "check" or "color"
    caption: str
    title: str  #: tells what the control is for without its neighbors
    value: str
    enabled: bool
    remark: str  #: what the page cannot use; empty if nothing


@dataclass(frozen=True)
class Warning:
    """A likely problem of a page."""

    id: str  #: identifies the type of warning
    control: str  #: the name of the control that causes it; empty if none does
    text: str


class _Text(ctypes.Structure):
    _fields_ = [("bytes", ctypes.c_void_p), ("size", ctypes.c_size_t)]


class _WriteOptions(ctypes.Structure):
    _fields_ = [("size", ctypes.c_size_t), ("dots_per_inch", ctypes.c_double), ("transparent", ctypes.c_int)]


class _PadOptions(ctypes.Structure):
    _fields_ = [("size", ctypes.c_size_t), ("pages", ctypes.c_size_t), ("up", ctypes.c_size_t), ("numbers", ctypes.c_int),
                ("dates", ctypes.c_char_p), ("back", ctypes.c_void_p), ("copies", ctypes.c_size_t), ("table", ctypes.c_char_p),
                ("table_size", ctypes.c_size_t), ("booklet", ctypes.c_int), ("creep", ctypes.c_char_p),
                ("poster", ctypes.c_char_p), ("overlap", ctypes.c_char_p)]


def _load() -> ctypes.CDLL:
    # LINEALIS_LIBRARY names another file, for a library that is not installed.
    library = ctypes.CDLL(os.environ.get("LINEALIS_LIBRARY", "liblinealis.so.1"))
    pointer, text, size = ctypes.c_void_p, ctypes.c_char_p, ctypes.c_size_t
    out, out_text = ctypes.POINTER(ctypes.c_void_p), ctypes.POINTER(_Text)
    arguments = {
        "kinds": [out], "presets": [out], "formats": [out], "schema": [text, out_text],
        "sheet_new": [text, out], "sheet_from_form": [text, size, out],
        "sheet_controls": [pointer, out], "sheet_items": [pointer, text, out], "sheet_warnings": [pointer, out],
        "sheet_get": [pointer, text, out_text], "sheet_set": [pointer, text, text], "sheet_type": [pointer, text, text],
        "sheet_lay_over": [pointer, text, size], "sheet_form": [pointer, out_text], "sheet_link": [pointer, out_text],
        "sheet_settings": [pointer, out_text], "sheet_load": [pointer, text, size, out_text],
        "sheet_markers": [pointer, text], "sheet_wizard_type": [pointer, text, text], "sheet_wizard_ok": [pointer],
        "sheet_fit": [pointer, text, text, text], "sheet_summary": [pointer, out_text],
        "sheet_write": [pointer, text, ctypes.POINTER(_WriteOptions), out_text],
        "pad": [ctypes.POINTER(pointer), size, ctypes.POINTER(_PadOptions), out_text],
    }
    for name, types in arguments.items():
        function = getattr(library, f"linealis_{name}")
        function.argtypes, function.restype = types, ctypes.c_int
    for name, types, result in (("version", [], text), ("message", [], text), ("sheet_kind", [pointer], text),
                                ("table_rows", [pointer], size), ("table_cell", [pointer, size, text], text),
                                ("table_free", [pointer], None), ("sheet_free", [pointer], None), ("text_free", [out_text], None)):
        function = getattr(library, f"linealis_{name}")
        function.argtypes, function.restype = types, result
    return library


_library = _load()


def _check(status: int) -> None:
    if status == 0:
        return
    message = _library.linealis_message().decode(errors="replace")
    raise {1: InvalidInput(message), 3: MemoryError(message)}.get(status, Error(message))


def _encoded(text: str) -> bytes:
    data = text.encode(errors="surrogateescape")
    if b"\0" in data:
        raise InvalidInput(f"{text!r} has a zero character")
    return data


def _bytes_of(function: Any, *arguments: Any) -> bytes:
    text = _Text()
    _check(function(*arguments, ctypes.byref(text)))
    try:
        return ctypes.string_at(text.bytes, text.size)
    finally:
        _library.linealis_text_free(ctypes.byref(text))


def _text_of(function: Any, *arguments: Any) -> str:
    return _bytes_of(function, *arguments).decode(errors="replace")


def _rows(columns: tuple[str, ...], function: Any, *arguments: Any) -> Iterator[list[str]]:
    table = ctypes.c_void_p()
    _check(function(*arguments, ctypes.byref(table)))
    try:
        for row in range(_library.linealis_table_rows(table)):
            yield [_library.linealis_table_cell(table, row, column.encode()).decode(errors="replace") for column in columns]
    finally:
        _library.linealis_table_free(table)


def version() -> str:
    """Returns the version of the library."""
    return str(_library.linealis_version(), "utf-8")


def kinds() -> list[Kind]:
    """Returns the kinds of paper, in the order of the gallery."""
    return [Kind(*row) for row in _rows(("name", "title", "extension"), _library.linealis_kinds)]


def presets() -> list[Preset]:
    """Returns the presets."""
    return [Preset(*row) for row in _rows(("name", "kind", "title"), _library.linealis_presets)]


def formats() -> list[Format]:
    """Returns the file formats that Sheet.write knows."""
    return [Format(*row) for row in _rows(("name", "title", "type"), _library.linealis_formats)]


def schema(kind: str | None = None) -> dict[str, Any]:
    """Returns the JSON Schema of the forms of a kind, or of all kinds."""
    found: dict[str, Any] = json.loads(_bytes_of(_library.linealis_schema, None if kind is None else _encoded(kind)))
    return found


def _value(value: Value) -> bytes:
    if isinstance(value, bool):
        return b"on" if value else b"off"
    return _encoded(value if isinstance(value, str) else repr(value))


def _alias(keyword: str) -> str:
    return keyword.replace("_", "-")


def _range(data: Range | None) -> bytes | None:
    return None if data is None else ":".join(str(part) for part in data).encode()


class Sheet:
    """A sheet of paper: a form, and the page that it describes."""

    _pointer: ctypes.c_void_p

    def __init__(self, source: str, /, **values: Value) -> None:
        """Makes a sheet of a kind ("grid"), a preset ("squares-5mm") or a link, and sets controls in the given order."""
        self._pointer = ctypes.c_void_p()
        _check(_library.linealis_sheet_new(_encoded(source), ctypes.byref(self._pointer)))
        self.set(**values)

    @classmethod
    def from_form(cls, form: bytes | str | dict[str, Any], /, **values: Value) -> Sheet:
        """Makes a sheet from a form that names its kind: JSON or the dict of it, a page as SVG or PNG, or a pad as PDF."""
        data = cls._form_bytes(form)
        sheet = cls.__new__(cls)
        sheet._pointer = ctypes.c_void_p()
        _check(_library.linealis_sheet_from_form(data, len(data), ctypes.byref(sheet._pointer)))
        sheet.set(**values)
        return sheet

    def __del__(self) -> None:
        if getattr(self, "_pointer", None):
            _library.linealis_sheet_free(self._pointer)

    @staticmethod
    def _form_bytes(form: bytes | str | dict[str, Any]) -> bytes:
        if isinstance(form, dict):
            return json.dumps(form).encode()
        return form.encode() if isinstance(form, str) else bytes(form)

    def __repr__(self) -> str:
        return f"<linealis.Sheet: {self.summary()}>"

    def _repr_svg_(self) -> str:
        """Shows the page as a picture in notebooks."""
        return self.svg()

    @property
    def kind(self) -> str:
        """The name of the kind."""
        return str(_library.linealis_sheet_kind(self._pointer), "utf-8")

    def controls(self) -> list[Control]:
        """Returns the controls, in the order of the form."""
        columns = ("name", "alias", "type", "caption", "title", "value", "enabled", "remark")
        return [Control(name, alias, type, caption, title, value, enabled == "on", remark)
                for name, alias, type, caption, title, value, enabled, remark
                in _rows(columns, _library.linealis_sheet_controls, self._pointer)]

    def items(self, control: str) -> list[str]:
        """Returns the items of a popup or radio group; none for other controls."""
        return [item for [item] in _rows(("item",), _library.linealis_sheet_items, self._pointer, _encoded(control))]

    def __getitem__(self, control: str) -> str:
        return _text_of(_library.linealis_sheet_get, self._pointer, _encoded(control))

    def __setitem__(self, control: str, value: Value) -> None:
        """Sets a control as a user would. Others that depend on it follow: a change of units converts the lengths."""
        _check(_library.linealis_sheet_set(self._pointer, _encoded(control), _value(value)))

    def set(self, **values: Value) -> Sheet:
        """Sets controls in the given order. Returns the sheet."""
        for keyword, value in values.items():
            self[_alias(keyword)] = value
        return self

    def type(self, control: str, text: Value) -> None:
        """Types a text into a field, so that what follows from it is worked out anew."""
        _check(_library.linealis_sheet_type(self._pointer, _encoded(control), _value(text)))

    def lay_over(self, form: bytes | str | dict[str, Any]) -> None:
        """Applies a form, or a part of one: JSON or the dict of it, a page as SVG or PNG, or a pad as PDF."""
        data = self._form_bytes(form)
        _check(_library.linealis_sheet_lay_over(self._pointer, data, len(data)))

    def form(self) -> dict[str, Any]:
        """Returns the whole form, as linealis-cli prints it."""
        form: dict[str, Any] = json.loads(_bytes_of(_library.linealis_sheet_form, self._pointer))
        return form

    def link(self) -> str:
        """Returns the form as a link: the part of an address from "#" on."""
        return _text_of(_library.linealis_sheet_link, self._pointer)

    def settings(self) -> bytes:
        """Returns the form as the content of a settings file."""
        return _bytes_of(_library.linealis_sheet_settings, self._pointer)

    def load(self, settings: bytes) -> str:
        """Fills in the form from the content of a settings file of the same kind. Returns what a short file lacks."""
        return _text_of(_library.linealis_sheet_load, self._pointer, bytes(settings), len(settings))

    def markers(self, path: str | os.PathLike[str] | None) -> None:
        """Uses the lines of a file as markers, of graph paper whose box for markers is on; None for no markers."""
        _check(_library.linealis_sheet_markers(self._pointer, None if path is None else os.fsencode(path)))

    def wizard(self, **fields: Value) -> Sheet:
        """Fills in the form of graph paper from its wizard: min_x, max_x, minor_x_spacing, and so on. Returns the sheet."""
        for keyword, value in fields.items():
            _check(_library.linealis_sheet_wizard_type(self._pointer, _encoded(_alias(keyword)), _value(value)))
        _check(_library.linealis_sheet_wizard_ok(self._pointer))
        return self

    def fit(self, x: Range | None = None, y: Range | None = None, fineness: str = "medium") -> Sheet:
        """Fits the axes of graph paper to ranges of data: fit(x=(0, 250), y=(0.1, 1000, "log")). Returns the sheet."""
        _check(_library.linealis_sheet_fit(self._pointer, _range(x), _range(y), _encoded(fineness)))
        return self

    def summary(self) -> str:
        """Returns what the page holds, in words."""
        return _text_of(_library.linealis_sheet_summary, self._pointer)

    def warnings(self) -> list[Warning]:
        """Returns the likely problems of the page."""
        return [Warning(*row) for row in _rows(("id", "control", "text"), _library.linealis_sheet_warnings, self._pointer)]

    def write(self, format: str, dpi: float = 300.0, transparent: bool = False) -> bytes:
        """Returns the page as a file of one of formats(). Resolution (1 to 9600) and transparency apply to pictures."""
        options = _WriteOptions(ctypes.sizeof(_WriteOptions), dpi, transparent)
        return _bytes_of(_library.linealis_sheet_write, self._pointer, _encoded(format), ctypes.byref(options))

    def pdf(self) -> bytes:
        """Returns the page as a PDF file, dated with the current time, or with SOURCE_DATE_EPOCH from the environment."""
        return self.write("pdf")

    def svg(self) -> str:
        """Returns the page as an SVG file."""
        return self.write("svg").decode()

    def png(self, dpi: float = 300.0, transparent: bool = False) -> bytes:
        """Returns the page as a PNG file."""
        return self.write("png", dpi, transparent)

    def dxf(self) -> str:
        """Returns the page as a DXF file, for CAD programs and cutters."""
        return self.write("dxf").decode()

    def save(self, path: str | os.PathLike[str], dpi: float = 300.0, transparent: bool = False) -> None:
        """Writes the page to a file whose extension tells the format."""
        data = self.write(Path(path).suffix[1:] or "pdf", dpi, transparent)
        Path(path).write_bytes(data)


def pad(*sheets: Sheet, pages: int | None = None, up: int = 1, numbers: bool = False, dates: datetime.date | str | None = None,
        back: Sheet | None = None, copies: int = 1, table: str | bytes | None = None, booklet: bool = False,
        creep: str | None = None, poster: str | None = None, overlap: str | None = None) -> bytes:
    """Returns a PDF file with the pages of the sheets, which take turns on the fronts, at their true size.

    pages    on the fronts (default 50, or one per row of the table)
    up       pages on each side: 1, 2 or 4, with cut marks
    numbers  whether the front pages are numbered, in the order of the stacks after cutting
    dates    the date on the first front page; a day later on each further one
    back     the page on every back, as large as the fronts
    copies   pads in the file
    table    CSV: a front page per row, whose cells are set in the single sheet
    booklet  for sheets that are put into each other, folded and stapled; creep is the thickness of the paper, such as "0.1mm"
    poster   the paper, such as "A4", to put a large page on in parts; overlap is what neighboring sheets share (default "10mm")

    The file carries the forms of its pages, and Sheet.from_form reads the first.
    """
    for name, number in (("pages", pages), ("up", up), ("copies", copies)):
        if number is not None and not 0 < number < 2**31:
            raise InvalidInput(f"{name} is {number}, but must be a number from 1")
    data = table.encode() if isinstance(table, str) else table
    words = [None if word is None else _encoded(str(word)) for word in (dates, creep, poster, overlap)]
    options = _PadOptions(ctypes.sizeof(_PadOptions), pages or 0, up, numbers, words[0], back and back._pointer, copies, data,
                          len(data or b""), booklet, *words[1:])
    pointers = (ctypes.c_void_p * len(sheets))(*(sheet._pointer for sheet in sheets))
    return _bytes_of(_library.linealis_pad, pointers, len(sheets), ctypes.byref(options))
