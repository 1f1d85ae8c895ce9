#!/usr/bin/python3
"""Says what is linked into the programs of a release, as SPDX 2.3 JSON:
    sbom.py VERSION SECONDS PROGRAM...
SECONDS is the time of the release since 1970. The versions of the libraries are those of the Debian packages
that hold them."""
import datetime
import hashlib
import json
import os
import re
import subprocess
import sys

# Debian package, name, what it gives, which programs have it. Licences as Debian's copyright files name them.
LINKED = [
    ("g++-mingw-w64-x86-64-win32", "libstdc++ and libgcc", "GPL-3.0-or-later WITH GCC-exception-3.1", None),
    ("mingw-w64-x86-64-dev", "mingw-w64 start-up code and import libraries", "NOASSERTION", None),
    ("libcli11-dev", "CLI11", "BSD-3-Clause", ["wendlow-profile.exe"]),
    ("nlohmann-json3-dev", "JSON for Modern C++", "MIT", ["wendlow-profile.exe"]),
]


def version_of(package):
    return subprocess.run(["dpkg-query", "--show", "--showformat=${Version}", package], check=True,
                          capture_output=True, text=True).stdout


def identifier(text):
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.]+", "-", text)


def digest(algorithm, path):
    with open(path, "rb") as file:
        return hashlib.new(algorithm, file.read()).hexdigest()


def package(name, version, licence):
    return {"SPDXID": identifier(name), "name": name, "versionInfo": version, "downloadLocation": "NOASSERTION",
            "filesAnalyzed": False, "licenseConcluded": "NOASSERTION", "licenseDeclared": licence,
            "copyrightText": "NOASSERTION"}


def main(version, seconds, *programs):
    made = datetime.datetime.fromtimestamp(int(seconds), datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")
    names = [os.path.basename(program) for program in programs]
    # No licence has been chosen for Wendlow itself.
    packages = [package("Wendlow", version, "NONE")]
    relationships = [("SPDXRef-DOCUMENT", "DESCRIBES", identifier("Wendlow"))]
    relationships += [(identifier("Wendlow"), "CONTAINS", identifier(name)) for name in names]
    for debian, name, licence, users in LINKED:
        packages.append(package(name, version_of(debian), licence))
        relationships += [(identifier(user), "STATIC_LINK", identifier(name)) for user in users or names]
    # SPDX wants SHA-1 beside what is to be trusted, and a package that contains files their sum.
    files = [{"SPDXID": identifier(name), "fileName": "./" + name,
              "checksums": [{"algorithm": algorithm, "checksumValue": digest(algorithm, program)}
                            for algorithm in ("SHA1", "SHA256")],
              "licenseConcluded": "NOASSERTION", "copyrightText": "NOASSERTION"}
             for name, program in zip(names, programs)]
    sums = sorted(file["checksums"][0]["checksumValue"] for file in files)
    packages[0]["filesAnalyzed"] = True
    packages[0]["packageVerificationCode"] = {
        "packageVerificationCodeValue": hashlib.sha1("".join(sums).encode()).hexdigest()}
    # Another name for each other document.
    contents = hashlib.sha256("".join(digest("SHA256", program) for program in programs).encode()).hexdigest()
    json.dump({
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"wendlow-{version}", "documentNamespace": f"urn:wendlow:{version}:{contents}",
        "creationInfo": {"created": made, "creators": ["Organization: The Wendlow project"]},
        "packages": packages, "files": files,
        "relationships": [{"spdxElementId": a, "relationshipType": kind, "relatedSpdxElement": b}
                          for a, kind, b in relationships],
    }, sys.stdout, indent=2)
    print()


if __name__ == "__main__":
    main(*sys.argv[1:])
