"""hosted_workflow SOURCES: checks that the workflow for a Mac is well-formed. It must use no action except the host's own
checkout, name no host, and use existing presets, each of which it configures first. Each job must run the tests of a preset
that builds them, or run the built program once."""

import json
import re
import sys
from pathlib import Path

import yaml

sources = Path(sys.argv[1])
text = (sources / ".github/workflows/macos.yml").read_text()
workflow = yaml.safe_load(text)
presets = json.loads((sources / "CMakePresets.json").read_text())
kinds = {"cmake --preset": "configurePresets", "cmake --build --preset": "buildPresets", "ctest --preset": "testPresets"}
faults = []


def check(condition, fault):
    if not condition:
        faults.append(fault)


def variables(name):
    """Returns the cache variables of a configure preset. Its own values override inherited ones."""
    preset = next(preset for preset in presets["configurePresets"] if preset["name"] == name)
    inherited = variables(preset["inherits"]) if "inherits" in preset else {}
    return {**inherited, **preset.get("cacheVariables", {})}


def systems_of(job):
    if "strategy" not in job:
        return [job["runs-on"]]
    check(job["runs-on"] == "${{ matrix.system }}", f"a job with several systems runs on {job['runs-on']}")
    return job["strategy"]["matrix"]["system"]


def check_preset(command, name, configured):
    known = {preset["name"] for preset in presets[kinds[command]]}
    check(name in known, f"the preset does not exist: {command} {name}")
    if command == "cmake --preset":
        configured.add(name)
    check(name in configured, f"not configured first: {command} {name}")
    if command == "ctest --preset":
        check(variables(name).get("GLIDEMAP_TESTS", "ON") == "ON", f"the preset builds no tests: {command} {name}")


def check_job(name, job):
    systems = systems_of(job)
    check(systems and all(system.startswith("macos-") for system in systems), f"{name} runs on {systems}")
    used = [step["uses"] for step in job["steps"] if "uses" in step]
    check(used == ["actions/checkout@v5"], f"{name} uses {used}")
    commands = "\n".join(step.get("run", "") for step in job["steps"])
    configured = set()
    called = re.findall(r"^(cmake(?: --build)? --preset|ctest --preset) (\S+)", commands, re.MULTILINE)
    for command, preset in called:
        check_preset(command, preset, configured)
    done = {command for command, _ in called} | ({"ctest --preset"} if "--version" in commands else set())
    check(done == kinds.keys(), f"{name} does not configure, build and test, or run once")


check(workflow["permissions"] == {"contents": "read"}, "the workflow has more than read permission")
check("://" not in text, "the workflow names a host")
check(workflow["jobs"], "the workflow has no job")
for name, job in workflow["jobs"].items():
    check_job(name, job)
sys.exit("\n".join(faults) if faults else 0)
