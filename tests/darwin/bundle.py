"""bundle SOURCES RESULT TOOLS: assembles a bundle from the linked services by the rules of packaging/macos, except those of
Qt, and checks that its parts are consistent."""

import plistlib
import re
import shutil
import subprocess
import sys
from pathlib import Path

sources, result, tools = (Path(argument) for argument in sys.argv[1:])
rules = (sources / "packaging/macos/CMakeLists.txt").read_text()
project = (sources / "CMakeLists.txt").read_text()
bundle = result / "Glidemap.app"
contents = bundle / "Contents"


def check(condition, fault):
    if not condition:
        sys.exit(f"bundle: {fault}")


def only(pattern, text):
    found = re.findall(pattern, text)
    check(len(found) == 1, f"found {len(found)} times instead of once: {pattern}")
    return found[0]


def configure(template):
    """Configures the template with CMake."""
    script = result / "properties.cmake"
    version = only(r"project\(Glidemap VERSION (\S+)", project)
    oldest = only(r"CMAKE_OSX_DEPLOYMENT_TARGET (\S+) CACHE", project)
    script.write_text(
        f'set(CMAKE_SOURCE_DIR "{sources}")\nset(PROJECT_VERSION {version})\nset(CMAKE_OSX_DEPLOYMENT_TARGET {oldest})\n'
        f'include("{sources}/cmake/ApplicationBundle.cmake")\nwrite_bundle_properties("{template}")\n'
    )
    subprocess.run(["cmake", "-P", script], check=True)


shutil.rmtree(bundle, ignore_errors=True)
for folder in ["MacOS", "Resources", "Helpers"]:
    (contents / folder).mkdir(parents=True)
configure((contents / "Info.plist").resolve())
properties = plistlib.loads((contents / "Info.plist").read_bytes())

program = contents / "MacOS" / properties["CFBundleExecutable"]
shutil.copy(result / "Glidemap", program)
only(r"OUTPUT_NAME \$\{GLIDEMAP_BUNDLE_NAME\}", rules)
names = (sources / "cmake/ApplicationBundle.cmake").read_text()
check(only(r"set\(GLIDEMAP_BUNDLE_NAME (\S+)\)", names) == program.name, "the list names another program")

icon = sources / "packaging/macos" / properties["CFBundleIconFile"]
check(icon.read_bytes()[:4] == b"icns", "the list names no icon")
only(r"MACOSX_PACKAGE_LOCATION Resources", rules)
shutil.copy(icon, contents / "Resources")

helper = only(r"set\(fetch \$\{bundle\}/(\S+)\)", rules)
called = only(r"if\(APPLE\)\s+set\(helpers (\S+)\)", (sources / "src/app/CMakeLists.txt").read_text())
check(Path(helper).parent == Path("Contents") / called, f"the helper is in {helper} and called in Contents/{called}")
check((contents / called).is_dir(), "no folder for the helper")

for architecture in ["arm64", "x86_64"]:
    command = [tools / "llvm-otool", "-l", "-arch", architecture, program]
    commands = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    oldest = only(r"minos (\S+)", commands)
    check(oldest == properties["LSMinimumSystemVersion"], f"{architecture} has another minimum version than the property list: {oldest}")
