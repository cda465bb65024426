#!/usr/bin/env python3
"""Checks the starter recipe book in data/book/ (the format of data/book/README.md).

Usage: python3 scripts/check_book.py [BOOK_DIR] [--costs]

Reports every fault as "file:line: what is wrong" and exits with 1 if there is any; prints
the counts of the book at the end. Besides the format rules that the build tool enforces,
it checks what the format cannot: that an ingredient is always measured the same way
(counted or by volume), that non-alcoholic drinks hold no liquor, that colour schemes are
readable, that print layouts give every field and a usable grid, and the book's sizes.
--costs also lists the most and least expensive drinks, for a look at the prices.
"""

import os
import re
import sys
from collections import defaultdict

# The drink editor's measures: name -> (ounces per unit, kind). The kinds: "volume" measures
# are ounces, "count" measures store the count itself, "none" has no amount.
MEASURES = {
    "Dash": (0.03125, "volume"),
    "Splash": (0.0625, "volume"),
    "Teaspoon": (0.167, "volume"),
    "Tablespoon": (0.5, "volume"),
    "Ounce (Shot)": (1, "volume"),
    "Jigger": (1.5, "volume"),
    "Cup": (8, "volume"),
    "Pint": (16, "volume"),
    "Fifth (750 ml)": (25.4, "volume"),
    "Quart": (32, "volume"),
    "½ Gal. (1.75 L)": (64, "volume"),
    "Gallon": (128, "volume"),
    "Liter": (33.8, "volume"),
    "Sprig": (1, "count"),
    "Piece": (1, "count"),
    "Wedge": (1, "count"),
    "Slice": (1, "count"),
    # A part is a share of the drink, stored as its count; costs read it as an ounce.
    "Part": (1, "volume"),
    "Fill With": (0, "none"),
    "Top With": (0, "none"),
}
MEASURE_BY_KEY = {m.lower(): m for m in MEASURES}

LAYOUT_TEXT_FIELDS = ["Name", "NameFont", "IngFont", "GlassFont", "BuildFont", "GarnishFont",
                      "MarkFont", "RecipeFont", "Mark"]
LAYOUT_NUMBER_FIELDS = ["Orientation", "Metric", "MarTop", "MarBottom", "MarLeft", "MarRight",
                        "Rows", "RowSpacing", "Cols", "ColSpacing", "GlassHeight", "PrintIng",
                        "PrintGlass", "PrintBuild", "PrintGarnish", "PrintMark", "PrintRecipe",
                        "GlassOpt"]
DRINK_FIELDS = ["Name", "Glass", "Categories", "Build", "Garnish", "Rating", "Picture",
                "Comments", "Recipe"]

DECIMAL = re.compile(r"^(\d+(\.\d*)?|\.\d+)$")      # what the build tool takes
PLAIN_DECIMAL = re.compile(r"^\d+(\.\d+)?$")          # what this book writes: "0.75", never ".75"
MONEY = re.compile(r"^\d{1,12}(\.\d{0,4})?$")
WHOLE = re.compile(r"^-?\d{1,9}$")
COLOUR = re.compile(r"^#[0-9A-Fa-f]{6}$")
NUMBER = re.compile(r"^-?(\d+(\.\d*)?|\.\d+)$")
FIELD_LINE = re.compile(r"^([A-Za-z]+):\s*(.*)$")
FONT = re.compile(r"^([^;]+);(\d+);(\d+);(True|False);(True|False);(True|False);(True|False);$")

# Sizes the book is meant to have.
MIN_DRINKS = 210
MIN_NON_ALCOHOLIC = 12
PICTURES = (50, 70)
CATEGORIES = (15, 25)          # besides "Unknown / Other"
MIN_INGREDIENTS = 200
LIQUOR_TYPES = {1, 2, 3}
NON_ALCOHOLIC = "non-alcoholic"


def key(name):
    return name.lower()


class Book:
    def __init__(self, folder):
        self.dir = folder
        self.faults = []
        self.notes = []

    # --- reading ---------------------------------------------------------------------------

    def fault(self, file, line, what):
        self.faults.append(f"{file}:{line}: {what}" if line else f"{file}: {what}")

    def lines(self, file):
        path = os.path.join(self.dir, file)
        try:
            with open(path, encoding="utf-8") as f:
                text = f.read()
        except (OSError, UnicodeDecodeError) as e:
            self.fault(file, 0, f"cannot read the file: {e}")
            return []
        if text.startswith("\ufeff"):
            text = text[1:]
        result = []
        for number, line in enumerate(text.split("\n"), 1):
            if line.endswith("\r"):
                line = line[:-1]
            if "\t" in line:
                self.fault(file, number, "a tab in the line; use blanks")
            if line != line.rstrip():
                self.fault(file, number, "blanks at the end of the line")
            result.append((number, line))
        return result

    @staticmethod
    def is_comment(line):
        return line.strip().startswith("#")

    def records(self, file):
        return [(n, l) for n, l in self.lines(file) if l.strip() and not self.is_comment(l)]

    def blocks(self, file):
        result, current = [], []
        for n, l in self.lines(file):
            if not l.strip():
                if current:
                    result.append(current)
                current = []
            elif not self.is_comment(l):
                current.append((n, l))
        if current:
            result.append(current)
        return result

    def fields(self, file, number, line, count, minimum, shape):
        parts = line.split("|")
        if len(parts) > count:
            parts = parts[:count - 1] + ["|".join(parts[count - 1:])]
        parts = [p.strip() for p in parts]
        if len(parts) < minimum:
            self.fault(file, number, f'expected "{shape}"')
            return None
        return parts + [""] * (count - len(parts))

    def unique(self, file, number, name, seen, what):
        if not name:
            self.fault(file, number, f"the {what} has no name")
            return False
        if key(name) in seen:
            self.fault(file, number, f'{what} "{name}" is already defined (line {seen[key(name)]})')
            return False
        seen[key(name)] = number
        return True

    # --- the files -------------------------------------------------------------------------

    def read_types(self):
        file = "types.txt"
        self.types = {}            # id -> name
        self.type_ids = {}         # key(name) -> id
        self.sub_types = {}        # type id -> {key(sub name): name}
        names, sub_names = {}, {}
        for n, l in self.records(file):
            f = self.fields(file, n, l, 3, 3, "T | id | type name\" or \"S | type id | sub type name")
            if not f:
                continue
            kind, ident, name = f
            if not WHOLE.match(ident):
                self.fault(file, n, f'the type id "{ident}" is not a whole number')
                continue
            ident = int(ident)
            if kind.upper() == "T":
                if ident in self.types:
                    self.fault(file, n, f"type id {ident} is already used")
                elif self.unique(file, n, name, names, "type"):
                    self.types[ident] = name
                    self.type_ids[key(name)] = ident
                    self.sub_types[ident] = {}
            elif kind.upper() == "S":
                if ident not in self.types:
                    self.fault(file, n, f"type {ident} is not defined above")
                elif self.unique(file, n, name, sub_names, "sub type"):
                    self.sub_types[ident][key(name)] = name
            else:
                self.fault(file, n, "a line begins with T for a type or S for a sub type")
        if self.types.get(0) != "Undefined":
            self.fault(file, 0, 'type 0 must be "Undefined"')
        for ident in LIQUOR_TYPES:
            if ident not in self.types:
                self.fault(file, 0, f"liquor type {ident} is missing")
        for ident, subs in self.sub_types.items():
            if ident != 0 and not subs:
                self.notes.append(f'type "{self.types[ident]}" has no sub types')

    def read_ingredients(self):
        file = "ingredients.txt"
        self.ingredients = {}      # key(name) -> dict
        seen = {}
        for n, l in self.records(file):
            f = self.fields(file, n, l, 7, 6,
                            "name | type | sub type or - | unit type | oz per unit | unit price | notes")
            if not f:
                continue
            name, type_name, sub_name, unit, oz, price, notes = f
            ing = {"name": name, "line": n, "type": None, "unit": unit, "oz": 0.0, "price": 0.0,
                   "notes": notes}
            if key(type_name) not in self.type_ids:
                self.fault(file, n, f'unknown ingredient type "{type_name}"')
            else:
                ing["type"] = self.type_ids[key(type_name)]
                if sub_name != "-" and key(sub_name) not in self.sub_types[ing["type"]]:
                    self.fault(file, n, f'unknown sub type "{sub_name}" of type "{type_name}"')
            if not unit:
                self.fault(file, n, "the purchase unit is empty")
            if not DECIMAL.match(oz):
                self.fault(file, n, f'oz per unit "{oz}" is not a number like 25.4')
            else:
                ing["oz"] = float(oz)
            if not MONEY.match(price):
                self.fault(file, n, f'unit price "{price}" is not an amount of money like 22.99')
            else:
                ing["price"] = float(price)
            if (ing["oz"] == 0) != (ing["price"] == 0):
                self.fault(file, n, "oz per unit and unit price must both be 0 (free) or both above 0")
            if self.unique(file, n, name, seen, "ingredient"):
                self.ingredients[key(name)] = ing

    def read_glassware(self):
        file = "glassware.txt"
        self.glasses = {}          # key(name) -> id
        ids, seen = set(), {}
        for n, l in self.records(file):
            f = self.fields(file, n, l, 3, 2, "GlassID | name | description")
            if not f:
                continue
            ident, name, notes = f
            if not WHOLE.match(ident):
                self.fault(file, n, f'the glass id "{ident}" is not a whole number')
                continue
            ident = int(ident)
            if not 1 <= ident <= 24:
                self.fault(file, n, f"glass id {ident} is not in 1..24")
            if ident in ids:
                self.fault(file, n, f"glass id {ident} is already used")
            ids.add(ident)
            if not notes:
                self.notes.append(f"{file}:{n}: glass \"{name}\" has no description")
            if self.unique(file, n, name, seen, "glass"):
                self.glasses[key(name)] = ident
                if ident == 24 and "unknown" not in key(name):
                    self.fault(file, n, 'glass 24 must be the "Unknown" glass')
        if ids != set(range(1, 25)):
            missing = sorted(set(range(1, 25)) - ids)
            self.fault(file, 0, f"the book must give exactly the 24 glasses 1..24; missing {missing}")

    def read_categories(self):
        file = "categories.txt"
        self.categories = {}       # key(name) -> id
        ids, seen = set(), {}
        for n, l in self.records(file):
            f = self.fields(file, n, l, 2, 2, "TypeID | name")
            if not f:
                continue
            ident, name = f
            if not WHOLE.match(ident) or not 0 <= int(ident) <= 32767:
                self.fault(file, n, f'category id "{ident}" is not a whole number in 0..32767')
                continue
            ident = int(ident)
            if ident in ids:
                self.fault(file, n, f"category id {ident} is already used")
                continue
            ids.add(ident)
            if self.unique(file, n, name, seen, "category"):
                self.categories[key(name)] = ident
        if self.categories.get(key("Unknown / Other")) != 0:
            self.fault(file, 0, 'category 0 must be "Unknown / Other"')

    def read_names(self, file, what):
        names, seen = {}, {}
        for n, l in self.records(file):
            name = l.strip()
            if "|" in name:
                self.fault(file, n, f"one {what} name a line, without bars")
            if self.unique(file, n, name, seen, what):
                names[key(name)] = len(names) + 1
        if not names:
            self.fault(file, 0, f"there is no {what}")
        return names

    def read_colour_schemes(self):
        file = "colorschemes.txt"
        ids, seen = set(), {}
        self.schemes = 0
        for n, l in self.records(file):
            f = self.fields(file, n, l, 6, 6, "id | name | text | highlight | accent | background")
            if not f:
                continue
            ident, name, text, highlight, accent, background = f
            ok = True
            if not WHOLE.match(ident):
                self.fault(file, n, f'the scheme id "{ident}" is not a whole number')
                ok = False
            for what, value in (("text", text), ("highlight", highlight), ("accent", accent),
                                ("background", background)):
                if not COLOUR.match(value):
                    self.fault(file, n, f'{what} colour "{value}" is not a colour like #1A2B3C')
                    ok = False
            if not ok:
                continue
            if int(ident) in ids:
                self.fault(file, n, f"scheme id {ident} is already used")
                continue
            ids.add(int(ident))
            self.unique(file, n, name, seen, "scheme")
            self.schemes += 1
            # Readability by the WCAG contrast ratio: 4.5 is the floor for normal text, 3 for
            # large headings and marks. The program writes a selected list row or letter tab in
            # the negative of the text colour on the highlight, the page templates write the
            # background colour on highlight areas, and a hovered tab or command has the text
            # colour on the accent.
            for what, fore, back, floor in (
                    ("text on the background", text, background, 7.0),
                    ("the negative of the text (selected rows and tabs) on the highlight",
                     negative(text), highlight, 4.5),
                    ("the background (text on highlight areas of the page) on the highlight",
                     background, highlight, 4.5),
                    ("text on the accent (hovered tabs and commands)", text, accent, 4.5),
                    ("the accent (headings, rules) on the background", accent, background, 3.0)):
                ratio = contrast(fore, back)
                if ratio < floor:
                    self.fault(file, n, f"{what} has a contrast of {ratio:.2f}, below {floor:g}")
        if 64 not in ids:
            self.fault(file, 0, "scheme 64 (the default) is missing")

    def read_constants(self):
        file = "constants.txt"
        required = ["MarkupOpt", "MarkupPct", "ApplyZero", "RoundTo", "MinPrice"]
        self.constants = {}
        for n, l in self.records(file):
            f = self.fields(file, n, l, 2, 2, "Var | Val")
            if not f:
                continue
            var, val = f
            if var not in required:
                self.fault(file, n, f'unknown setting "{var}"')
                continue
            if var in self.constants:
                self.fault(file, n, f'setting "{var}" is already given')
                continue
            self.constants[var] = val
            if var == "MarkupOpt" and val not in ("Cost", "BCM", "Cur"):
                self.fault(file, n, f'MarkupOpt "{val}" is not Cost, BCM or Cur')
            elif var == "MarkupPct" and not DECIMAL.match(val):
                self.fault(file, n, f'MarkupPct "{val}" is not a number')
            elif var == "ApplyZero" and val not in ("True", "False"):
                self.fault(file, n, f'ApplyZero "{val}" is not True or False')
            elif var == "RoundTo" and not (WHOLE.match(val) and 0 <= int(val) <= 5):
                self.fault(file, n, f'RoundTo "{val}" is not a rounding index 0..5')
            elif var == "MinPrice" and val != "None" and not MONEY.match(val):
                self.fault(file, n, f'MinPrice "{val}" is neither None nor money')
        for var in required:
            if var not in self.constants:
                self.fault(file, 0, f'setting "{var}" is missing')

    def read_print_layouts(self):
        file = "printlayouts.txt"
        seen = {}
        self.layouts = 0
        for block in self.blocks(file):
            at = block[0][0]
            values = {}
            for n, l in block:
                field, eq, value = l.partition("=")
                field, value = field.strip(), value.strip()
                if not eq or field not in LAYOUT_TEXT_FIELDS + LAYOUT_NUMBER_FIELDS:
                    self.fault(file, n, 'expected "field=value" with a field of PrintLayout')
                elif field in values:
                    self.fault(file, n, f"{field} is already given for this layout")
                elif field in LAYOUT_NUMBER_FIELDS and not NUMBER.match(value):
                    self.fault(file, n, f'{field} "{value}" is not a number')
                else:
                    values[field] = (n, value)
            if "Name" not in values:
                self.fault(file, at, "the layout has no Name")
                continue
            self.unique(file, at, values["Name"][1], seen, "layout")
            self.layouts += 1
            for field in LAYOUT_TEXT_FIELDS + LAYOUT_NUMBER_FIELDS:
                if field not in values:
                    self.fault(file, at, f'layout "{values["Name"][1]}" does not give {field}')
            self.check_layout(file, values)

    def check_layout(self, file, values):
        def number(field):
            return float(values[field][1]) if field in values and NUMBER.match(values[field][1]) else None

        for field, allowed in (("Orientation", (1, 2)), ("Metric", (0, 1)), ("GlassOpt", (1, 2)),
                               ("PrintIng", (0, 1)), ("PrintGlass", (0, 1)), ("PrintBuild", (0, 1)),
                               ("PrintGarnish", (0, 1)), ("PrintMark", (0, 1)),
                               ("PrintRecipe", (0, 1))):
            v = number(field)
            if v is not None and v not in allowed:
                self.fault(file, values[field][0], f"{field} {values[field][1]} is not one of {allowed}")
        for field in ("Rows", "Cols"):
            v = number(field)
            if v is not None and (v < 1 or v != int(v)):
                self.fault(file, values[field][0], f"{field} must be a whole number of at least 1")
        for field in ("MarTop", "MarBottom", "MarLeft", "MarRight", "RowSpacing", "ColSpacing",
                      "GlassHeight"):
            v = number(field)
            if v is not None and v < 0:
                self.fault(file, values[field][0], f"{field} must not be negative")
        for field in LAYOUT_TEXT_FIELDS:
            if field.endswith("Font") and field in values:
                m = FONT.match(values[field][1])
                if not m:
                    self.fault(file, values[field][0],
                               f"{field} is not name;size;colour;bold;italic;strikethrough;underline;")
                elif not 6 <= int(m.group(2)) <= 72 or int(m.group(3)) > 0xFFFFFF:
                    self.fault(file, values[field][0], f"{field} has an odd size or colour")
        # The cells on a letter page (8.5 x 11 in., 216 x 279 mm) must leave room for a card.
        needed = ("Orientation", "Metric", "MarTop", "MarBottom", "MarLeft", "MarRight", "Rows",
                  "RowSpacing", "Cols", "ColSpacing", "GlassHeight")
        if all(number(f) is not None for f in needed):
            unit = 25.4 if number("Metric") == 1 else 1.0
            width, height = 8.5 * unit, 11 * unit
            if number("Orientation") == 2:
                width, height = height, width
            rows, cols = number("Rows"), number("Cols")
            cell_w = (width - number("MarLeft") - number("MarRight")
                      - (cols - 1) * number("ColSpacing")) / max(cols, 1)
            cell_h = (height - number("MarTop") - number("MarBottom")
                      - (rows - 1) * number("RowSpacing")) / max(rows, 1)
            if cell_w < 2 * unit or cell_h < 2 * unit:
                self.fault(file, values["Name"][0],
                           f"the cards are only {cell_w:.2f} x {cell_h:.2f} on a letter page")
            if number("GlassHeight") > cell_h / 2:
                self.fault(file, values["GlassHeight"][0], "the glass picture takes over half the card")

    def read_drinks(self):
        file = "drinks.txt"
        self.drinks = []
        seen = {}
        measure_kind = defaultdict(dict)      # ingredient key -> {kind or measure: first place}
        for block in self.blocks(file):
            at = block[0][0]
            d = {"line": at, "lines": [], "categories": [], "fields": {}, "recipe": []}
            in_recipe = False
            for n, l in block:
                if in_recipe:
                    text = l.strip()
                    m = FIELD_LINE.match(text)
                    if m and m.group(1) in DRINK_FIELDS:
                        self.fault(file, n, f"{m.group(1)}: after Recipe: is read as recipe text; "
                                            "Recipe: must come last")
                    if "|" in text:
                        self.fault(file, n, "a recipe line after Recipe: is read as recipe text")
                    d["recipe"].append(text)
                    continue
                m = FIELD_LINE.match(l.strip())
                if not m:
                    if "|" in l:
                        self.read_drink_line(file, n, l, d)
                    else:
                        self.fault(file, n, 'expected "Field: value" or "amount | measure | ingredient"')
                    continue
                field, value = m.group(1), m.group(2).strip()
                if field not in DRINK_FIELDS:
                    self.fault(file, n, f'unknown field "{field}"')
                    continue
                if field in d["fields"]:
                    self.fault(file, n, f"{field} is already given for this drink")
                    continue
                d["fields"][field] = (n, value)
                if field == "Recipe":
                    in_recipe = True
                    if value:
                        d["recipe"].append(value)
            self.check_drink(file, d, seen)
            for n, measure, ing in d["lines"]:
                kind = MEASURES[measure][1]
                if kind == "none":
                    continue
                # Counted things keep to one measure; volumes may use any volume measure.
                mark = measure if kind == "count" else "volume"
                places = measure_kind[key(ing)]
                places.setdefault(mark, n)
                if len(places) > 1:
                    first = ", ".join(f"{m} (line {p})" for m, p in places.items())
                    self.fault(file, n, f'"{ing}" is measured in more than one way: {first}; '
                                        "its oz per unit can fit only one")
                    places.clear()
                    places[mark] = n
            self.drinks.append(d)
        self.measure_kind = measure_kind

    def read_drink_line(self, file, n, l, d):
        f = self.fields(file, n, l, 3, 3, "amount | measure | ingredient")
        if not f:
            return
        amount, measure, ing = f
        if key(measure) not in MEASURE_BY_KEY:
            self.fault(file, n, f'unknown measure "{measure}"')
            return
        measure = MEASURE_BY_KEY[key(measure)]
        if MEASURES[measure][1] == "none":
            if amount:
                self.fault(file, n, f'"{measure}" takes no amount')
                return
        elif not DECIMAL.match(amount) or float(amount) <= 0:
            self.fault(file, n, f'amount "{amount}" is not a decimal number above 0 like 1.5')
            return
        elif not PLAIN_DECIMAL.match(amount) or (("." in amount) and amount.endswith("0")):
            self.fault(file, n, f'write the amount "{amount}" plainly, like 0.75 or 2')
        if key(ing) not in self.ingredients:
            self.fault(file, n, f'unknown ingredient "{ing}"')
            return
        d["lines"].append((n, measure, self.ingredients[key(ing)]["name"]))
        d.setdefault("amounts", []).append(float(amount) if amount else 0.0)

    def check_drink(self, file, d, seen):
        at, fields = d["line"], d["fields"]
        name = fields.get("Name", (at, ""))[1]
        d["name"] = name
        if not name:
            self.fault(file, at, "the drink has no Name")
        else:
            self.unique(file, at, name, seen, "drink")
        for field in ("Glass", "Categories", "Recipe"):
            if field not in fields:
                self.fault(file, at, f'drink "{name}" has no {field}')
        for field in ("Build", "Rating"):
            if field not in fields:
                self.fault(file, at, f'drink "{name}" has no {field} (every drink of this book has one)')
        if not d["lines"]:
            self.fault(file, at, f'drink "{name}" has no ingredient line')
        for field, table, what in (("Glass", self.glasses, "glass"), ("Build", self.builds, "build"),
                                   ("Garnish", self.garnishes, "garnish"),
                                   ("Rating", self.ratings, "rating")):
            if field in fields and key(fields[field][1]) not in table:
                self.fault(file, fields[field][0], f'unknown {what} "{fields[field][1]}"')
        if "Categories" in fields:
            n, value = fields["Categories"]
            for part in value.split(";"):
                part = part.strip()
                if not part:
                    continue
                if key(part) not in self.categories:
                    self.fault(file, n, f'unknown category "{part}"')
                elif key(part) in d["categories"]:
                    self.fault(file, n, f'category "{part}" is listed twice')
                else:
                    d["categories"].append(key(part))
            if not d["categories"]:
                self.fault(file, n, f'drink "{name}" has no category')
        if "Picture" in fields and not COLOUR.match(fields["Picture"][1]):
            self.fault(file, fields["Picture"][0], f'picture colour "{fields["Picture"][1]}" is not #RRGGBB')
        if "Comments" in fields and not fields["Comments"][1]:
            self.fault(file, fields["Comments"][0], "an empty Comments line")
        recipe = " ".join(d["recipe"]).strip()
        if "Recipe" in fields and not recipe:
            self.fault(file, fields["Recipe"][0], f'drink "{name}" has an empty Recipe')
        elif recipe:
            sentences = len(re.findall(r"[.!?](\s|$)", recipe))
            if not 2 <= sentences <= 5:
                self.fault(file, fields["Recipe"][0],
                           f'the recipe of "{name}" has {sentences} sentences, not 2 to 5')
            if not recipe.endswith((".", "!", "?")):
                self.fault(file, fields["Recipe"][0], f'the recipe of "{name}" does not end a sentence')
        seen_ings = set()
        for n, measure, ing in d["lines"]:
            if (key(ing), measure) in seen_ings:
                self.fault(file, n, f'"{ing}" is listed twice with the same measure')
            seen_ings.add((key(ing), measure))
        if NON_ALCOHOLIC in d["categories"]:
            for n, measure, ing in d["lines"]:
                if self.ingredients[key(ing)]["type"] in LIQUOR_TYPES:
                    self.fault(file, n, f'the non-alcoholic "{name}" contains {ing}')
        else:
            if not any(self.ingredients[key(ing)]["type"] in LIQUOR_TYPES for _, _, ing in d["lines"]):
                self.fault(file, at, f'"{name}" holds no liquor but is not in "Non-Alcoholic"')

    # --- the whole book --------------------------------------------------------------------

    def check(self, show_costs=False):
        self.read_types()
        self.read_ingredients()
        self.read_glassware()
        self.read_categories()
        self.garnishes = self.read_names("garnishes.txt", "garnish")
        self.builds = self.read_names("builds.txt", "build")
        self.ratings = self.read_names("ratings.txt", "rating")
        self.read_colour_schemes()
        self.read_constants()
        self.read_print_layouts()
        self.read_drinks()

        # Counted ingredients: their purchase unit must be counted in the same pieces.
        for k, places in self.measure_kind.items():
            ing = self.ingredients[k]
            counted = [m for m in places if m != "volume"]
            if counted and ing["oz"] > 0 and any(u in key(ing["unit"]) for u in ("bottle", "can ", "carton")):
                self.fault("ingredients.txt", ing["line"],
                           f'"{ing["name"]}" is counted by the {counted[0].lower()} but bought as '
                           f'"{ing["unit"]}"')

        drinks = [d for d in self.drinks if d.get("name")]
        pictures = sum(1 for d in drinks if "Picture" in d["fields"])
        non_alcoholic = sum(1 for d in drinks if NON_ALCOHOLIC in d["categories"])
        digits = sum(1 for d in drinks if d["name"][:1].isdigit())
        categories = len(self.categories) - (1 if key("Unknown / Other") in self.categories else 0)
        if len(drinks) < MIN_DRINKS:
            self.fault("drinks.txt", 0, f"only {len(drinks)} drinks, fewer than {MIN_DRINKS}")
        if non_alcoholic < MIN_NON_ALCOHOLIC:
            self.fault("drinks.txt", 0, f"only {non_alcoholic} non-alcoholic drinks")
        if not PICTURES[0] <= pictures <= PICTURES[1]:
            self.fault("drinks.txt", 0, f"{pictures} drinks have a picture, not {PICTURES[0]} to {PICTURES[1]}")
        if not CATEGORIES[0] <= categories <= CATEGORIES[1]:
            self.fault("categories.txt", 0, f"{categories} categories, not {CATEGORIES[0]} to {CATEGORIES[1]}")
        if len(self.ingredients) < MIN_INGREDIENTS:
            self.fault("ingredients.txt", 0, f"only {len(self.ingredients)} ingredients")
        if self.schemes < 7:
            self.fault("colorschemes.txt", 0, f"only {self.schemes} colour schemes, fewer than 7")
        if not 2 <= self.layouts <= 3:
            self.fault("printlayouts.txt", 0, f"{self.layouts} print layouts, not 2 or 3")

        used = {key(ing) for d in drinks for _, _, ing in d["lines"]}
        used_glasses = {key(d["fields"]["Glass"][1]) for d in drinks if "Glass" in d["fields"]}
        used_categories = {c for d in drinks for c in d["categories"]}
        for k, ing in self.ingredients.items():
            if ing["type"] == 0:
                self.notes.append(f'ingredient "{ing["name"]}" has the type Undefined')
        for k, ident in self.categories.items():
            if ident != 0 and k not in used_categories:
                self.fault("categories.txt", 0, f'no drink is in category id {ident}')
        for k, ident in self.glasses.items():
            if ident != 24 and k not in used_glasses:
                self.notes.append(f"glass {ident} is not used by any drink")
        unused = sorted(self.ingredients[k]["name"] for k in self.ingredients if k not in used)

        costs = sorted(((self.cost(d), d["name"]) for d in drinks), reverse=True)
        if show_costs:
            print("Most expensive drinks:")
            for c, n in costs[:12]:
                print(f"  {c:8.4f}  {n}")
            print("Least expensive drinks:")
            for c, n in costs[-12:]:
                print(f"  {c:8.4f}  {n}")

        for note in self.notes:
            print(f"note: {note}")
        for fault in self.faults:
            print(fault)
        print(f"{len(drinks)} drinks ({non_alcoholic} non-alcoholic, {pictures} with a picture, "
              f"{digits} named with a leading digit), {len(self.ingredients)} ingredients "
              f"({len(unused)} not used by a drink), {len(self.types)} types, "
              f"{sum(len(s) for s in self.sub_types.values())} sub types, {categories} categories "
              f"besides \"Unknown / Other\", {len(self.glasses)} glasses, {len(self.garnishes)} garnishes, "
              f"{len(self.builds)} builds, {len(self.ratings)} ratings, {self.schemes} colour schemes, "
              f"{self.layouts} print layouts")
        print(f"{len(self.faults)} fault(s)")
        return not self.faults

    def cost(self, d):
        """The drink's cost as the build computes it: unit price / oz per unit * the stored
        measure (ounces, or the count for counted measures)."""
        total = 0.0
        for (_, measure, ing), amount in zip(d["lines"], d.get("amounts", [])):
            i = self.ingredients[key(ing)]
            if i["oz"] > 0 and i["price"] > 0:
                total += i["price"] / i["oz"] * amount * MEASURES[measure][0]
        return total


def luminance(colour):
    def channel(c):
        c = c / 255
        return c / 12.92 if c <= 0.03928 else ((c + 0.055) / 1.055) ** 2.4
    r, g, b = (int(colour[i:i + 2], 16) for i in (1, 3, 5))
    return 0.2126 * channel(r) + 0.7152 * channel(g) + 0.0722 * channel(b)


def negative(colour):
    """The colour negative the program paints selected text in: 255 minus each channel."""
    return "#" + "".join(f"{255 - int(colour[i:i + 2], 16):02X}" for i in (1, 3, 5))


def contrast(a, b):
    la, lb = sorted((luminance(a), luminance(b)), reverse=True)
    return (la + 0.05) / (lb + 0.05)


def main(argv):
    args = [a for a in argv[1:] if not a.startswith("--")]
    folder = args[0] if args else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "book")
    ok = Book(folder).check(show_costs="--costs" in argv)
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv))
