"""Every command's --json output validates against docs/zefra-output.schema.json.

Run by CTest with Debian's interpreter: json_schema_check.py ZEFRA SCHEMA.
"""
import json
import os
import subprocess
import sys
import tempfile

import jsonschema

COMMANDS = [
    ["point", "--tdb", "22", "--rh", "0.6"],
    ["point", "--twb", "18", "--tdp", "12.5", "--pressure", "90000"],
    ["mix"],
    ["mix", "--a-tdb", "30", "--a-d", "12", "--b-tdb", "5", "--b-rh", "0.8", "--ratio", "1"],
    ["line"],
    ["line", "--q", "-20"],
    ["ratio", "--q", "10", "--mw", "0.0012"],
    ["ratio", "--a-tdb", "20", "--a-d", "8", "--b-tdb", "30", "--b-d", "8"],
    ["primary"], ["primary", "--type", "1"], ["primary", "--type", "3"], ["primary", "--type", "2", "--literal"],
    ["secondary"], ["secondary", "--type", "4"],
    ["settings"],
    ["systems", "list", "--kind", "kt"],
    ["layer", "pipe", "--system", "冷冻供水", "--kind", "kt", "--plan"],
    ["label", "--list", "0"],
    ["flange", "offset", "500"],
    ["flange", "pipe", "50", "--kind", "kt"],
    ["config", "dump", "ZEFRA\\SPACE"],
]


def main():
    zefra, schema_path = os.path.abspath(sys.argv[1]), sys.argv[2]
    with open(schema_path, encoding="utf-8") as f:
        schema = json.load(f)
    validator = jsonschema.Draft202012Validator(schema)
    failures = 0
    with tempfile.TemporaryDirectory() as scratch:
        env = dict(os.environ, ZEFRA_CONFIG_DIR=scratch, HOME=scratch)
        both = os.path.join(scratch, "both.json")
        with open(both, "w", encoding="utf-8") as f:
            json.dump({"summer": {}, "winter": {"Qn": 25, "FreshAirRatio": 0.3}}, f)
        both_secondary = os.path.join(scratch, "both-secondary.json")
        with open(both_secondary, "w", encoding="utf-8") as f:
            json.dump({"summer": {}, "winter": {"Go": 1.35, "Gr1": 0.5, "FreshAirRatio": 0.3}}, f)
        commands = COMMANDS + [["primary", "--input", both], ["secondary", "--input", both_secondary],
                               ["chart", os.path.join(scratch, "chart.svg")]]
        for args in commands:
            run = subprocess.run([zefra, *args, "--json"], capture_output=True, text=True, env=env, cwd=scratch)
            if run.returncode not in (0, 3):
                print(f"FAIL {' '.join(args)}: exit {run.returncode}: {run.stderr}")
                failures += 1
                continue
            errors = sorted(validator.iter_errors(json.loads(run.stdout)), key=lambda e: list(e.path))
            if errors:
                print(f"FAIL {' '.join(args)}: {errors[0].message} at {list(errors[0].path)}")
                failures += 1
    print(f"{len(commands) - failures} passed, {failures} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
