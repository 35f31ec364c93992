#!/usr/bin/env python3
"""Checks the JSON Schema of jobs with a validator: every line of the manual's examples and of the
example jobs is valid, and lines that the reader refuses are not.

usage: schema_test.py docs/job.schema.json docs/job-format.md JOB...
"""

import json
import re
import sys

import jsonschema

REFUSED = """
{}
[1,2,3]
{"nc":""}
{"nc":7}
{"nc":"A","poinst":[[1,2,3]]}
{"nc":"A","activity":"B"}
{"nc":"A","points":[]}
{"nc":"A","points":[[1,2]]}
{"nc":"A","points":[[1,2,3,4]]}
{"nc":"A","points":[[1,2,3,0,0,1,800]]}
{"nc":"A","points":[[1,"2",3]]}
{"nc":"A","axis":[0,0]}
{"nc":"A","sequence":0}
{"nc":"A","hole":1.5}
{"nc":"A","ppCommand":1}
{"ppCommand":1,"sequence":1}
{"ppCommand":0}
{"sequence":1}
{"nc":"A","hole":2147483648}
{"nc":"A","comment":"two\\nlines"}
{"nc":"A","feedrate":{"type":"linear"}}
{"nc":"A","feedrate":{"value":"800"}}
{"nc":"A","spindle":{"value":9,"type":"rpm"}}
{"nc":"A","rotate":{"axisSystem":{"origin":[0,0,0]}}}
{"nc":"A","circle":{"centre":[0,0,0]}}
{"activity":"A","parameters":{"D":2}}
{"activity":"A","parameters":{"D":{}}}
{"activity":"A","parameters":{"D":{"real":1,"integer":1}}}
{"activity":"A","parameters":{"":"x"}}
{"activity":"A","parameters":{"A\\u0001B":"x"}}
{"activity":"A","assembly":{"kind":"lathe","radii":{"":1}}}
{"activity":"A","kind":"milling"}
{"activity":"A","kind":"lathe","motions":[]}
{"activity":"A","lathe":{}}
{"activity":"A","kind":"toolChange","lathe":{}}
{"activity":"A","kind":"toolChange","strategy":{}}
{"activity":"A","feedsAndSpeeds":{}}
{"activity":"A","kind":"machining","operation":{"name":"B","kind":"machining"}}
{"activity":"A","kind":"toolChange","operation":{"name":"B"}}
{"activity":"A","kind":"toolChange","operation":{"name":"B","kind":"toolChange"}}
{"activity":"A","kind":"toolChange","operation":{"name":"B","kind":"machining","lathe":{"way":"-1"}}}
{"activity":"A","kind":"toolChange","operation":{"name":"B","kind":"lathe","motions":[]}}
{"activity":"A","kind":"machining","feedsAndSpeeds":{"spindleWay":"clw"}}
{"activity":"A","kind":"machining","feedsAndSpeeds":{"machining":{"type":"linear"}}}
{"activity":"A","kind":"machining","strategy":{"dwell":"seconds"}}
{"activity":"A","kind":"machining","toolPath":{"type":1.5}}
{"activity":"A","kind":"lathe","turning":{"origin":[0,0,0]}}
{"activity":"A","kind":"lathe","lathe":{"correctors":{"0":"P9"}}}
{"activity":"A","kind":"lathe","lathe":{"correctors":{"1":""}}}
{"activity":"A","kind":"lathe","lathe":{"defaultCorrector":0}}
{"activity":"A","kind":"sequentialAxial","motions":[{"feed":1}]}
{"activity":"A","kind":"sequentialAxial","motions":[{"feedsAndSpeeds":{"spindleSpeed":"own"}}]}
{"activity":"A","tool":{"name":"T"}}
{"activity":"A","tool":{"replay":{"9":[1,2]}}}
{"activity":"A","assembly":{"reference":"P9"}}
{"activity":"A","assembly":{"kind":"mill","radii":{"":1}}}
{"activity":"A","assembly":{"kind":"lathe","reference":0}}
{"activity":"A","assembly":{"insert":{"noseRadius":1}}}
{"activity":"A","assembly":{"insert":{"type":"MfgGrooveInsert","noseRadius":1}}}
{"activity":"A","assembly":{"insert":{"type":"X","leftNoseRadius":1}}}
{"job":1,"program":"P","units":"mm","angleFactor":"deg"}
{"job":1,"program":"P"}
{"job":2,"program":"P","units":"mm"}
{"job":1,"program":"P","units":"cm"}
{"job":1,"program":"P","units":"mm","resource":{"table":"a"}}
{"job":1,"program":"P","units":"mm","designParameters":{"2d":1}}
{"end":false}
""".strip().splitlines()

schema_path, manual_path, *job_paths = sys.argv[1:]
with open(schema_path, encoding="utf-8") as file:
    schema = json.load(file)
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)

with open(manual_path, encoding="utf-8") as file:
    blocks = re.findall(r"^```jsonl?\n(.*?)^```$", file.read(), re.DOTALL | re.MULTILINE)
valid = "".join(blocks).splitlines()
for path in job_paths:
    with open(path, encoding="utf-8") as file:
        valid += file.read().splitlines()
valid = [line for line in valid if line.strip()]

faults = [f"not valid: {line}" for line in valid if not validator.is_valid(json.loads(line))]
faults += [f"valid: {line}" for line in REFUSED if validator.is_valid(json.loads(line))]
if len(valid) < 60:
    faults.append(f"only {len(valid)} lines were found")
if faults:
    sys.exit("\n".join(faults))
