"""signing CMAKE SIGN: checks the rule that signs a bundle. It must sign each nested part before the bundle, use the
hardened runtime and a timestamp only with a real identity, and stop at the first failure."""

import subprocess
import sys
import tempfile
from pathlib import Path

cmake, sign = sys.argv[1:]
parts = [
    "Contents/Frameworks/libnested.dylib",
    "Contents/Frameworks/QtCore.framework",
    "Contents/PlugIns/platforms/libqcocoa.dylib",
    "Contents/PlugIns/tls/libqsecuretransportbackend.dylib",
    "Contents/Helpers/glidemap-fetch",
]


def make_bundle(folder):
    bundle = folder / "Glidemap.app"
    for part in [*parts, "Contents/MacOS/Glidemap", "Contents/Resources/Glidemap.icns"]:
        file = bundle / part
        file.parent.mkdir(parents=True, exist_ok=True)
        file.mkdir() if part.endswith(".framework") else file.touch()
    return bundle


def signed(identity, refused="nothing"):
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        bundle = make_bundle(folder)
        tool = folder / "codesign"
        tool.write_text(f'#!/bin/sh\necho "$@" >>"{folder}/calls"\ncase "$*" in *{refused}*) exit 1 ;; esac\n')
        tool.chmod(0o755)
        run = subprocess.run(
            [cmake, f"-DCODESIGN={tool}", f"-DIDENTITY={identity}", f"-DBUNDLE={bundle}", "-P", sign], capture_output=True
        )
        calls = (folder / "calls").read_text().replace(f"{bundle}/", "").replace(str(bundle), "the bundle")
        return run.returncode, calls.splitlines()


def expect(found, expected):
    if found != expected:
        sys.exit(f"expected {expected}\nfound    {found}")


expect(signed("-"), (0, [f"--force --sign - {part}" for part in [*parts, "the bundle"]]))
real = "--force --sign Somebody --options runtime --timestamp"
expect(signed("Somebody"), (0, [f"{real} {part}" for part in [*parts, "the bundle"]]))
status, calls = signed("-", refused="libqcocoa")
expect((status != 0, calls[-1]), (True, "--force --sign - " + parts[2]))
