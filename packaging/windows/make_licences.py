"""Tells what is linked into the Windows programs: licences, where the sources are, and an SBOM.

make_licences.py <version> <licences of the toolkit> <folder>; makes licences/ and sbom.spdx.json
(SPDX 2.3). Reproducible: the time is SOURCE_DATE_EPOCH.
"""
import json
import os
import re
import shutil
import subprocess
import sys
from datetime import datetime, timezone
from pathlib import Path

# Of Debian packages: the name here, the package that says the version, where its licence stands
# (None: with the toolkit), the licence.
PARTS = [
    ("qt6-base", "qt6-base-dev", None, "LGPL-3.0-only OR GPL-2.0-only OR GPL-3.0-only"),
    (
        "qt6-translations",  # its Korean words
        "qt6-translations-l10n",
        "qt6-translations-l10n",
        "GPL-3.0-only WITH Qt-GPL-exception-1.0",
    ),
    ("qcustomplot", "libqcustomplot-dev", None, "GPL-3.0-or-later"),
    ("asio", "libasio-dev", "libasio-dev", "BSL-1.0"),
    ("mingw-w64", "mingw-w64-x86-64-dev", "mingw-w64-x86-64-dev", "ZPL-2.1"),
    (
        "gcc-mingw-w64",
        "gcc-mingw-w64-x86-64-posix-runtime",
        "gcc-mingw-w64-x86-64-posix-runtime",
        "GPL-3.0-or-later WITH GCC-exception-3.1",
    ),
]
# What Qt brings along and the programs get: folders with the attributions of its source.
IN_QT = [
    "3rdparty/blake2", "3rdparty/double-conversion", "3rdparty/easing", "3rdparty/freetype",
    "3rdparty/harfbuzz-ng", "3rdparty/icc", "3rdparty/libjpeg", "3rdparty/libpng", "3rdparty/md4",
    "3rdparty/md4c", "3rdparty/md5", "3rdparty/pcre2", "3rdparty/pixman", "3rdparty/rfc6234",
    "3rdparty/sha1", "3rdparty/sha3", "3rdparty/tinycbor", "3rdparty/zlib", "corelib/kernel",
    "corelib/text", "corelib/tools", "gui/painting", "gui/text",
]  # fmt: skip

SOURCES = """What is linked into zps-rs232.exe and zps-demo.exe, and how to get its sources.

Each part below comes unchanged from the Debian source package of that name and version, with
Debian's patches. On Debian 12, with a deb-src line for apt:

{commands}

{built_using}
Qt's own source holds the further libraries that sbom.spdx.json names as parts of it.

The panel's own source is what this version's programs were built from; it holds in
tools/build-windows the one command that builds Qt, QCustomPlot, the programs and these packages, so
that anybody can link the programs to a changed Qt or QCustomPlot.
"""


def ask_dpkg(field, package):
    return subprocess.check_output(["dpkg-query", "-W", f"-f=${{{field}}}", package], text=True)


def attributions(toolkit):
    """Of the parts within Qt: its files are JSON but for line ends within texts."""
    for folder in IN_QT:
        text = (toolkit / folder / "qt_attribution.json").read_text("utf-8")
        found = json.loads(text, strict=False)
        for part in found if isinstance(found, list) else [found]:
            yield folder, part


def spdx_id(name):
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]", "-", name)


def package(name, version, licence, copyright_text, how):
    return {
        "SPDXID": spdx_id(name),
        "name": name,
        **({"versionInfo": version} if version else {}),
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": licence,
        "licenseDeclared": licence,
        "copyrightText": copyright_text,
        "sourceInfo": how,
    }


def licence_of(part):
    """An SPDX expression, where the attribution gives one."""
    given = part.get("LicenseId", "")
    return given if re.fullmatch(r"[\w.+-]+( (OR|AND|WITH) [\w.+-]+)*", given) else "NOASSERTION"


def text_of(value):
    return "\n".join(value) if isinstance(value, list) else value


def sbom(version, parts, within_qt):
    own = package(
        "zps-rs232", version, "GPL-3.0-or-later", "2026 ZPS-RS232 developers", "zps-rs232 and zps-demo"
    )
    packages, relations = [own], [("SPDXRef-DOCUMENT", "DESCRIBES", own["SPDXID"])]
    for name, source_version, licence in parts:
        how = f"Debian source package {name} {source_version}, linked statically"
        packages.append(package(name, source_version, licence, "NOASSERTION", how))
        relations.append((own["SPDXID"], "STATIC_LINK", spdx_id(name)))
    for folder, part in within_qt:
        name = f"qt-{part['Id']}"
        how = f"src/{folder} of the Debian source package qt6-base: {part['Name']}"
        packages.append(
            package(name, part.get("Version"), licence_of(part),
                    text_of(part.get("Copyright", "NOASSERTION")), how)
        )  # fmt: skip
        relations.append((spdx_id("qt6-base"), "CONTAINS", spdx_id(name)))
    made = datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), timezone.utc)
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"zps-rs232-{version}-windows-x64",
        "documentNamespace": f"https://example.com/spdx/zps-rs232-{version}-windows-x64-{int(made.timestamp())}",
        "creationInfo": {
            "created": f"{made:%Y-%m-%dT%H:%M:%SZ}",
            "creators": ["Organization: ZPS-RS232 developers"],
        },
        "packages": packages,
        "relationships": [
            {"spdxElementId": a, "relationshipType": kind, "relatedSpdxElement": b}
            for a, kind, b in relations
        ],
    }


def main(version, toolkit, folder):
    licences = folder / "licences"
    others = shutil.ignore_patterns("*Commercial*")
    shutil.copytree(toolkit / "qt-texts", licences / "texts", ignore=others)
    parts = []
    for name, package_name, documented, licence in PARTS:
        parts.append((name, ask_dpkg("source:Version", package_name), licence))
        text = (
            Path("/usr/share/doc", documented, "copyright")
            if documented
            else toolkit / f"{name}.copyright"
        )
        shutil.copyfile(text, licences / f"{name}.txt")
    within_qt = list(attributions(toolkit))
    for path in sorted(toolkit.glob("*/*")):
        if path.is_file() and f"3rdparty/{path.parent.name}" in IN_QT and path.suffix != ".json":
            shutil.copyfile(path, licences / f"qt-{path.parent.name}-{path.name}")
    built_using = ask_dpkg("Built-Using", "gcc-mingw-w64-x86-64-posix-runtime")
    (licences / "SOURCES.txt").write_text(
        SOURCES.format(
            commands="\n".join(f"    apt-get source {n}={v}" for n, v, _ in parts),
            built_using=f"gcc-mingw-w64 was built from the Debian source package {built_using}.\n",
        ),
        "utf-8",
        newline="\n",
    )
    text = json.dumps(sbom(version, parts, within_qt), indent=2, ensure_ascii=False)
    (folder / "sbom.spdx.json").write_text(text + "\n", "utf-8", newline="\n")


if __name__ == "__main__":
    main(sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3]))
