# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later
"""Judges a Camtrap DP 1.0 package by what the standard requires.

The rules stand in camtrap/, as JSON Schemas of datapackage.json and of one line of each table. Beyond
JSON Schema a table's rules name the column that is "unique", and which columns "refersTo" lines of
other tables. Where a folder holds the tables' schemas as the standard's authors publish them
(deployments-table-schema.json and so on), these count as well.
"""

import csv
import json
import pathlib

import jsonschema

RULES = pathlib.Path(__file__).parent / "camtrap"
TABLES = ["deployments", "media", "observations"]


def flaws(package, published=None):
    """What is wrong with the package in this folder, for a person; an empty list if nothing is."""
    found = document_flaws(package)
    keys = {}
    for table in TABLES:
        rules = [json.loads((RULES / f"{table}.json").read_text())]
        if published:
            rules.append(rules_of(json.loads((published / f"{table}-table-schema.json").read_text())))
        for rule in rules:
            lines, misread = read(package / f"{table}.csv", rule)
            keys[table] = {line.get(rule["unique"]) for line in lines}
            found += [f"{table}.csv: {flaw}" for flaw in misread + table_flaws(lines, rule, keys)]
    return found


def document_flaws(package):
    document = json.loads((package / "datapackage.json").read_bytes())
    rules = json.loads((RULES / "package.json").read_text())
    found = [f"datapackage.json: {flaw}" for flaw in schema_flaws(document, rules)]
    named = sorted(resource["path"] for resource in document["resources"])
    if named != sorted(f"{table}.csv" for table in TABLES):
        found.append(f"datapackage.json names {named}")
    return found


def schema_flaws(value, rules):
    validator = jsonschema.Draft7Validator(rules, format_checker=jsonschema.FormatChecker())
    return [f"{'/'.join(map(str, error.path))}: {error.message}" for error in validator.iter_errors(value)]


def read(path, rules):
    """A table's lines, their values of the types that the rules say, and what is wrong with how it is
    written. What is empty is not there."""
    with open(path, encoding="utf-8", newline="") as file:
        header, *lines = csv.reader(file, strict=True)
    found = []
    if header != list(rules["properties"]):
        found.append("other columns than the standard's")
    if not path.read_bytes().endswith(b"\r\n"):
        found.append("its last line is not ended")
    types = [rules["properties"].get(name, {}).get("type") for name in header]
    return [{name: typed(text, kind) for name, text, kind in zip(header, line, types) if text}
            for line in lines], found


def typed(text, kind):
    try:
        if kind == "boolean":
            return {"true": True, "false": False}.get(text, text)
        return {"number": float, "integer": int, "object": json.loads}.get(kind, str)(text)
    except ValueError:
        return text  # which then is of the wrong type


def table_flaws(lines, rules, keys):
    found = []
    seen = set()
    for number, line in enumerate(lines, 2):
        found += [f"line {number}: {flaw}" for flaw in schema_flaws(line, rules)]
        key = line.get(rules["unique"])
        if key in seen:
            found.append(f"line {number}: a second {key}")
        seen.add(key)
        for column, table in rules["refersTo"].items():
            if column in line and line[column] not in keys[table]:
                found.append(f"line {number}: there is no {column} {line[column]}")
    return found


def rules_of(table):
    """The same rules out of a Table Schema."""
    fields = {field["name"]: field for field in table["fields"]}
    kept = ("enum", "minimum", "maximum", "pattern")
    types = {"string", "number", "integer", "boolean", "object"}
    properties = {}
    for name, field in fields.items():
        limits = field.get("constraints", {})
        properties[name] = {key: limits[key] for key in kept if key in limits}
        if field["type"] in types:
            properties[name]["type"] = field["type"]
    return {"required": [name for name, field in fields.items()
                         if field.get("constraints", {}).get("required")],
            "properties": properties, "additionalProperties": False, "unique": table["primaryKey"],
            "refersTo": {key["fields"]: key["reference"]["resource"]
                         for key in table.get("foreignKeys", [])}}
