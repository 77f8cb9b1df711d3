"""Holds the schema for editors against the library, by an independent validator.

editor_schema_test.py PROGRAM SOURCE_DIR [COUNT]: COUNT random documents, 10,000 unless told.
"""

import copy
import json
import pathlib
import random
import re
import subprocess
import sys
import tempfile

import jsonschema

program, source = sys.argv[1], pathlib.Path(sys.argv[2])
count = int(sys.argv[3]) if len(sys.argv) > 3 else 10_000


def run(*arguments):
    return subprocess.run([program, *arguments], cwd=source, stdout=subprocess.PIPE, text=True, check=False).stdout


def validator(*paths):
    schema = json.loads(run("editor-schema", *paths))
    jsonschema.Draft7Validator.check_schema(schema)
    return jsonschema.Draft7Validator(schema)


plain = validator()
completing = validator("examples/catalog")
catalog = {path: json.loads(path.read_text()) for path in sorted((source / "examples/catalog").rglob("*.json"))}
assert len(catalog) == 254

for path, document in catalog.items():
    for each in (plain, completing):
        for error in each.iter_errors(document):
            sys.exit(f"{path} is refused: {error.message}")

# What authors mistype.
fan_speed = (source / "examples/catalog/parameters/air/fan-speed.json").read_text()
for right, wrong in [
    ('"group"', '"gruop"'),
    ('"topBoundary": 60.0', '"topBoundary": "60"'),
    ('"topBoundary"', '"topBoundry"'),
    ('"constants"', '"constant"'),
    ('"typedValue": {"typeid"', '"typedValue": {"typId"'),
    ('"typeid": "acme.building:parameter.fanSpeed-1.0.0"', '"typeid": ""'),
    ('"id": "name"', '"id": "title"'),
    ('"data"', '"date"'),
]:
    document = fan_speed.replace(right, wrong)
    assert document != fan_speed, right
    assert not plain.is_valid(json.loads(document)), wrong

# What stands for a group is offered where a group stands, and whatever is offered has a description.
schema = completing.schema
assert "acme.building:group.airSide-1.0.0" in schema["definitions"]["typeids of kind group"]["enum"]
group = schema["definitions"]["group"]
assert group["properties"]["typedValue"]["properties"]["typeid"]["anyOf"][0] == {
    "$ref": "#/definitions/typeids%20of%20kind%20group"
}
for rule in schema["allOf"]:
    for section in rule["then"]["properties"].values():
        ids = section.get("items", {}).get("properties", {}).get("id", {})
        descriptions = ids.get("enumDescriptions", [])
        assert all(descriptions), ids
for name, member in schema["properties"].items():
    assert member.get("description"), name


def values_in(value, found):
    """All objects and arrays in a value."""
    if isinstance(value, (dict, list)):
        found.append(value)
        for each in value.values() if isinstance(value, dict) else value:
            values_in(each, found)
    return found


def broken(document, pool):
    document = copy.deepcopy(document)
    for _ in range(random.choice((0, 1, 1, 1, 2, 3))):
        container = random.choice(values_in(document, []))
        keys = list(container) if isinstance(container, dict) else list(range(len(container)))
        replacement = copy.deepcopy(random.choice(pool))
        action = random.randrange(4)
        if not keys:
            continue
        key = random.choice(keys)
        if action == 0:
            del container[key]
        elif action == 1:
            container[key] = replacement
        elif action == 2 and isinstance(container, dict):
            container[random.choice(names)] = replacement
        elif isinstance(container, list):
            container.append(replacement)
        else:
            container[random.choice(names)] = container.pop(key)
    return document


random.seed(20)
everything = [value for document in catalog.values() for value in values_in(document, [])]
names = sorted({name for value in everything if isinstance(value, dict) for name in value}) + ["note"]
scalars = [each for value in everything for each in (value.values() if isinstance(value, dict) else value)]
pool = everything + scalars + [None, True, 0, 1.5, "", "single", [], {}]
documents = []
for number in range(count):
    document = broken(random.choice(list(catalog.values())), pool)
    if isinstance(document.get("typeid"), str) and document["typeid"]:
        document["typeid"] = f"random:{number}-1.0.0"
    documents.append(document)

with tempfile.TemporaryDirectory() as folder:
    lines = pathlib.Path(folder, "random.jsonl")
    lines.write_text("\n".join(json.dumps(document) for document in documents))
    report = json.loads(
        run("check", str(lines), "--with", "examples/catalog", "--format", "json", "--rule", "unknown-value-type=off",
            "--rule", "missing-boundary=off", "--rule", "crossed-boundaries=off", "--rule", "repeated-number=off",
            "--rule", "other-dimension=off", "--rule", "unused-enumeration=off", "--all")
    )
at_fault = {finding["line"] for finding in report["findings"]}
taken = [document for line, document in enumerate(documents, 1) if line not in at_fault]
assert len(taken) > count // 10, len(taken)
for document in taken:
    for error in completing.iter_errors(document):
        sys.exit(f"refused, but the library takes it: {json.dumps(document)}\n{error.message} at {error.json_path}")
refused = sum(not plain.is_valid(document) for document in documents[: count // 10])
assert refused > count // 40, refused
print(f"{len(taken)} of {count} documents are taken, and so by the schema; of the first {count // 10} it refuses {refused}.")
