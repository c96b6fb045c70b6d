"""bundle_properties FILE VERSION: checks that the bundle's configured property list has exactly these keys and values."""

import plistlib
import sys

file, version = sys.argv[1:]
expected = {
    "CFBundleDevelopmentRegion": "en",
    "CFBundleDisplayName": "Glidemap",
    "CFBundleExecutable": "Glidemap",
    "CFBundleIconFile": "Glidemap.icns",
    "CFBundleIdentifier": "com.corvane.glidemap",
    "CFBundleInfoDictionaryVersion": "6.0",
    "CFBundleLocalizations": ["en", "zh-Hans"],
    "CFBundleName": "Glidemap",
    "CFBundlePackageType": "APPL",
    "CFBundleShortVersionString": version,
    "CFBundleVersion": version,
    "LSApplicationCategoryType": "public.app-category.utilities",
    "LSMinimumSystemVersion": "13.0",
    "LSUIElement": True,
    "NSHighResolutionCapable": True,
    "NSHumanReadableCopyright": "© 2026 The Glidemap developers",
    "NSPrincipalClass": "NSApplication",
    "NSSupportsAutomaticTermination": False,
}
with open(file, "rb") as opened:
    found = plistlib.load(opened)
for key in sorted(expected.keys() | found.keys()):
    if found.get(key) != expected.get(key) or type(found.get(key)) is not type(expected.get(key)):
        print(f"{key}: expected {expected.get(key)!r}, found {found.get(key)!r}")
sys.exit(found != expected)
