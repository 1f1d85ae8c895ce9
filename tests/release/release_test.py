#!/usr/bin/python3
"""Looks at the release in build/release as its users do; run inside a Wine session:
    scripts/wine-session tests/release/release_test.py
The session's prefix is clean, and gone afterwards."""
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time
import unittest
import unittest.mock
import zipfile

import pefile

ROOT = pathlib.Path(__file__).resolve().parents[2]
RELEASE = ROOT / "build" / "release"
WINE = "/usr/lib/wine/wine64"
PROGRAMS = ["wendlow.exe", "wendlow-open.exe", "wendlow-profile.exe"]
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Wendlow"
VERSION = re.search(r"project\(wendlow VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
NAME = f"wendlow-{VERSION}-windows-x64"
PREFIX = pathlib.Path(os.environ["WINEPREFIX"])
DRIVE = PREFIX / "drive_c"

# Windows' own libraries, on every Windows 10 and 11.
SYSTEM_LIBRARIES = {
    "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
    "oleacc.dll", "oleaut32.dll", "shcore.dll", "shell32.dll", "user32.dll"}


def run(*command, timeout=120):
    """Exit code and output of a Linux program."""
    done = subprocess.run([str(word) for word in command], capture_output=True, timeout=timeout, check=False)
    return done.returncode, done.stdout.decode(errors="replace") + done.stderr.decode(errors="replace")


def wine(*command, timeout=120):
    return run(WINE, *command, timeout=timeout)


def windows_path(path):
    return "C:\\" + str(path.relative_to(DRIVE)).replace("/", "\\")


def wait_until(condition, what, seconds=60):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds} s in vain: {what}")
        time.sleep(0.05)


def wendlow_shows():
    return run("xdotool", "search", "--onlyvisible", "--name", "^Wendlow$")[0] == 0


def wendlow_runs():
    """Whether a process of this prefix is Wendlow; Wine's own list of processes is empty."""
    prefix = f"WINEPREFIX={PREFIX}".encode()
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if (process / "comm").read_text() == "wendlow.exe\n" and \
                    prefix in (process / "environ").read_bytes().split(b"\0"):
                return True
        except (FileNotFoundError, ProcessLookupError):
            continue # It has ended meanwhile.
    return False


def close_wendlow():
    wine("taskkill.exe", "/im", "wendlow.exe")
    wait_until(lambda: not wendlow_shows(), "the closed main window goes")
    wait_until(lambda: not wendlow_runs(), "the closed program ends")


def registry_value(key, name):
    """The text behind a value's type; None when there is no such value."""
    code, out = wine("reg.exe", "query", key, *(["/ve"] if name == "" else ["/v", name]))
    found = re.search(r"REG_\w+[ \t]+(.*?)\r?$", out, re.MULTILINE)
    return found[1] if code == 0 and found else ("" if code == 0 else None)


def files_of_prefix():
    """What stands in the prefix; folders for temporary files are left out."""
    found = set()
    for here, folders, files in os.walk(DRIVE):
        folders[:] = [folder for folder in folders if folder.lower() != "temp"]
        found.update(os.path.join(here, name) for name in folders + files)
    return found


def registry_of_user():
    """The keys and values of the current user but for Wine's own, each value behind its key."""
    exported = DRIVE / "exported.reg"
    wine("reg.exe", "export", "HKCU", windows_path(exported), "/y")
    key, lines = "", set()
    for line in exported.read_text(encoding="utf-16").splitlines():
        key = line if line.startswith("[") else key
        if not key.startswith(r"[HKEY_CURRENT_USER\Software\Wine"):
            lines.add(f"{key} {line}")
    exported.unlink()
    return lines


def digests(folder):
    return {str(path.relative_to(folder)): hashlib.sha256(path.read_bytes()).hexdigest()
            for path in folder.rglob("*") if path.is_file()}


def unzipped(folder):
    with zipfile.ZipFile(RELEASE / f"{NAME}.zip") as archive:
        archive.extractall(folder)
    return folder / "wendlow"


def made_installer(folder, version, change=lambda files: None, sign=""):
    """Exit code and installer of a release of another version, with changed files."""
    files = unzipped(folder / version)
    change(files)
    shutil.copy(ROOT / "resources" / "icons" / "wendlow.ico", files.parent)
    setup = folder / f"wendlow-{version}-setup.exe"
    code, _ = run("env", "-C", folder, f"WENDLOW_SIGN={sign}", ROOT / "packaging" / "make-installer", version, files,
                  setup)
    return code, setup


class Sums(unittest.TestCase):
    def test_name_every_file_of_the_release(self):
        code, out = run("env", "-C", RELEASE, "sha256sum", "--check", "--strict", "SHA256SUMS")
        self.assertEqual(code, 0, out)
        named = {line.split()[1] for line in (RELEASE / "SHA256SUMS").read_text().splitlines()}
        self.assertEqual(named, {path.name for path in RELEASE.iterdir() if path.is_file()} - {"SHA256SUMS"})

    def test_winget_names_the_installer_by_its_sum(self):
        manifest = (RELEASE / "winget" / "Wendlow.Wendlow.installer.yaml").read_text()
        sum_of_installer = hashlib.sha256((RELEASE / f"{NAME}-setup.exe").read_bytes()).hexdigest()
        self.assertIn(f"InstallerSha256: {sum_of_installer.upper()}\n", manifest)
        self.assertIn(f"PackageVersion: {VERSION}\n", manifest)
        for path in (RELEASE / "winget").iterdir():
            self.assertNotIn("@", path.read_text())


class Zip(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = unzipped(DRIVE / "un zipped")

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder.parent)

    def test_holds_the_programs_and_the_documents(self):
        found = {str(path.relative_to(self.folder)) for path in self.folder.rglob("*")}
        wanted = {*PROGRAMS, "docs/guide.html", "docs/profile-format.html", "docs/profile.schema.json"}
        self.assertLessEqual(wanted, found)

    def test_documents_have_no_link_that_leads_nowhere(self):
        for page in self.folder.rglob("*.html"):
            text = page.read_text(encoding="utf-8")
            for target in re.findall(r'(?:href|src)="([^"#:]+)(?:#[^"]*)?"', text):
                self.assertTrue((page.parent / target).exists(), f"{page.name}: {target}")
            for anchor in re.findall(r'href="#([^"]+)"', text):
                self.assertIn(f'id="{anchor}"', text, page.name)

    def test_programs_carry_the_version(self):
        for name in PROGRAMS:
            with self.subTest(name):
                program = pefile.PE(str(self.folder / name))
                strings = next(info for info in program.FileInfo[0] if info.Key == b"StringFileInfo")
                texts = strings.StringTable[0].entries
                self.assertEqual(texts[b"FileVersion"].decode(), VERSION + ".0")
                self.assertEqual(texts[b"OriginalFilename"].decode(), name)
                fixed = program.VS_FIXEDFILEINFO[0]
                numbers = [fixed.FileVersionMS >> 16, fixed.FileVersionMS & 0xFFFF, fixed.FileVersionLS >> 16]
                self.assertEqual(".".join(map(str, numbers)), VERSION)
        said = wine(self.folder / "wendlow-profile.exe", "--version")[1].strip()
        self.assertEqual(said, f"wendlow-profile {VERSION}")

    def test_programs_need_nothing_but_windows(self):
        for name in PROGRAMS:
            with self.subTest(name):
                program = pefile.PE(str(self.folder / name))
                delayed = getattr(program, "DIRECTORY_ENTRY_DELAY_IMPORT", [])
                wanted = {entry.dll.decode().lower() for entry in [*program.DIRECTORY_ENTRY_IMPORT, *delayed]}
                apisets = {library for library in wanted if library.startswith("api-ms-win-crt-")}
                self.assertLessEqual(wanted - apisets, SYSTEM_LIBRARIES)

    def test_programs_are_hardened(self):
        for name in PROGRAMS:
            with self.subTest(name):
                program = pefile.PE(str(self.folder / name))
                header = program.OPTIONAL_HEADER
                self.assertTrue(header.IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE)
                self.assertTrue(header.IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA)
                self.assertTrue(header.IMAGE_DLLCHARACTERISTICS_NX_COMPAT)
                self.assertTrue(program.has_relocs(), "nothing can be moved without relocations")
                for section in program.sections:
                    self.assertFalse(section.IMAGE_SCN_MEM_WRITE and section.IMAGE_SCN_MEM_EXECUTE, section.Name)

    def test_program_runs(self):
        program = subprocess.Popen([WINE, str(self.folder / "wendlow.exe")])
        try:
            wait_until(wendlow_shows, "the main window")
        finally:
            close_wendlow()
        self.assertEqual(program.wait(timeout=60), 0)

    def test_companion_shows_a_profile(self):
        code, out = wine(self.folder / "wendlow-profile.exe", "show", ROOT / "docs" / "examples" / "Office.txt")
        self.assertEqual(code, 0, out)
        self.assertIn('"Office", 6 entries', out)


class Installer(unittest.TestCase):
    """Installed anew for each test, into a folder that has a blank in its name."""

    def setUp(self):
        wine("reg.exe", "add", r"HKCU\Software\Classes", "/f") # Every user of Windows has it.
        self.before = files_of_prefix(), registry_of_user()
        self.folder = DRIVE / "My Programs" / "Wendlow"
        self.addCleanup(self.remove_all)

    def remove_all(self):
        if wendlow_runs():
            close_wendlow()
        if self.folder.exists():
            self.remove()

    def install(self, *options, setup=RELEASE / f"{NAME}-setup.exe", folder=None):
        # The folder comes last and without quotation marks, so its words are words of their own.
        return wine(setup, "/S", *options, *f"/D={windows_path(folder or self.folder)}".split())[0]

    def remove(self):
        # It goes on as a copy of itself, so that its own file can be removed.
        code = wine(self.folder / "uninstall.exe", "/S")[0]
        wait_until(lambda: not self.folder.exists(), "the folder of the program goes")
        return code

    def users_file(self, *folders):
        return next(iter((DRIVE / "users").glob(f"*/{'/'.join(folders)}")), None)

    def start_menu_link(self):
        return self.users_file("AppData", "Roaming", "Microsoft", "Windows", "Start Menu", "Programs", "Wendlow.lnk")

    def assert_nothing_left(self):
        files, registry = files_of_prefix(), registry_of_user()
        # The folder above was made for it; Windows' installers leave such.
        added = files - self.before[0] - {str(self.folder.parent)}
        self.assertEqual(added, set())
        self.assertEqual(registry - self.before[1], set())

    def test_installs_what_the_zip_holds(self):
        self.assertEqual(self.install(), 0)
        with tempfile.TemporaryDirectory() as folder:
            expected = digests(unzipped(pathlib.Path(folder)))
        installed = digests(self.folder)
        self.assertIn("uninstall.exe", installed)
        del installed["uninstall.exe"]
        self.assertEqual(installed, expected)

    def test_program_starts_from_its_start_menu_link(self):
        self.assertEqual(self.install(), 0)
        # What it starts would keep a pipe for the output open.
        subprocess.run([WINE, "start.exe", windows_path(self.start_menu_link())], timeout=60, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(wendlow_shows, "the main window")

    def test_stands_among_the_installed_apps(self):
        self.assertEqual(self.install(), 0)
        self.assertEqual(registry_value(UNINSTALL_KEY, "DisplayName"), "Wendlow")
        self.assertEqual(registry_value(UNINSTALL_KEY, "DisplayVersion"), VERSION)
        self.assertEqual(registry_value(UNINSTALL_KEY, "InstallLocation"), windows_path(self.folder))
        self.assertEqual(registry_value(UNINSTALL_KEY, "QuietUninstallString"),
                         f'"{windows_path(self.folder)}\\uninstall.exe" /S')

    def test_offers_nothing_that_was_not_asked_for(self):
        self.assertEqual(self.install(), 0)
        self.assertIsNone(self.users_file("Desktop", "Wendlow.lnk"))
        self.assertIsNone(registry_value(r"HKCU\Software\Classes\Wendlow.Profile", ""))

    def test_makes_the_shortcut_and_the_entry_that_were_asked_for(self):
        self.assertEqual(self.install("/DESKTOP", "/FILETYPE=.layout"), 0)
        self.assertIsNotNone(self.users_file("Desktop", "Wendlow.lnk"))
        self.assertEqual(registry_value(r"HKCU\Software\Classes\.layout\OpenWithProgids", "Wendlow.Profile"), "")
        self.assertEqual(registry_value(r"HKCU\Software\Classes\Wendlow.Profile\shell\open\command", ""),
                         f'"{windows_path(self.folder)}\\wendlow-open.exe" "%1"')
        self.assertIsNone(registry_value(r"HKCU\Software\Classes\.layout", "Content Type"))

    def test_second_installation_takes_the_first_entry_back(self):
        self.assertEqual(self.install("/FILETYPE=layout"), 0)
        self.assertEqual(self.install("/FILETYPE=desk"), 0)
        self.assertIsNone(registry_value(r"HKCU\Software\Classes\.layout\OpenWithProgids", "Wendlow.Profile"))
        self.assertEqual(registry_value(r"HKCU\Software\Classes\.desk\OpenWithProgids", "Wendlow.Profile"), "")

    def test_newer_version_takes_the_place_of_an_older_one(self):
        with tempfile.TemporaryDirectory() as folder:
            code, older = made_installer(pathlib.Path(folder), "0.9.0",
                                         lambda files: (files / "docs" / "of-old.html").write_text("old"))
            self.assertEqual(code, 0)
            self.assertEqual(self.install("/DESKTOP", "/FILETYPE=layout", setup=older), 0)
        self.assertEqual(registry_value(UNINSTALL_KEY, "DisplayVersion"), "0.9.0")
        self.assertTrue((self.folder / "docs" / "of-old.html").exists())
        self.assertEqual(wine(RELEASE / f"{NAME}-setup.exe", "/S")[0], 0)
        self.assertEqual(registry_value(UNINSTALL_KEY, "DisplayVersion"), VERSION)
        self.assertTrue((self.folder / "wendlow.exe").exists(), "the folder stays the same")
        self.assertFalse((self.folder / "docs" / "of-old.html").exists(), "the newer version has no such file")
        self.assertIsNotNone(self.users_file("Desktop", "Wendlow.lnk"), "what was chosen stays")
        self.assertEqual(registry_value(r"HKCU\Software\Classes\.layout\OpenWithProgids", "Wendlow.Profile"), "")
        self.assertEqual(self.remove(), 0)
        self.assert_nothing_left()

    def test_leaves_nothing_in_the_folder_that_it_leaves(self):
        first = self.folder.parent / "Before"
        self.assertEqual(self.install("/FILETYPE=layout", folder=first), 0)
        self.assertEqual(self.install(), 0)
        self.assertFalse(first.exists())
        self.assertEqual(registry_value(r"HKCU\Software\Classes\Wendlow.Profile\shell\open\command", ""),
                         f'"{windows_path(self.folder)}\\wendlow-open.exe" "%1"')
        self.assertEqual(self.remove(), 0)
        self.assert_nothing_left()

    def test_says_when_a_file_cannot_be_written(self):
        in_the_way = self.folder / "wendlow-open.exe"
        in_the_way.mkdir(parents=True)
        self.assertEqual(self.install(), 2)
        self.assertIsNone(registry_value(UNINSTALL_KEY, "DisplayName"))
        shutil.rmtree(self.folder)

    def test_refuses_what_is_no_extension(self):
        for wrong in (".", "a.b", "a\\b", "a*"):
            with self.subTest(wrong):
                self.assertEqual(self.install(f"/FILETYPE={wrong}"), 4)
                self.assertFalse(self.folder.exists())

    def test_removal_leaves_nothing(self):
        self.assertEqual(self.install("/DESKTOP", "/FILETYPE=layout"), 0)
        self.assertEqual(self.remove(), 0)
        self.assert_nothing_left()

    def test_removal_leaves_what_is_not_its_own(self):
        self.assertEqual(self.install("/FILETYPE=layout"), 0)
        wine("reg.exe", "add", r"HKCU\Software\Classes\.layout\OpenWithProgids", "/v", "Another.Program", "/f")
        (self.folder / "My desk.txt").write_text("mine")
        wine(self.folder / "uninstall.exe", "/S")
        wait_until(lambda: not (self.folder / "uninstall.exe").exists(), "the uninstaller goes")
        self.assertEqual(digests(self.folder).keys(), {"My desk.txt"})
        self.assertEqual(registry_value(r"HKCU\Software\Classes\.layout\OpenWithProgids", "Another.Program"), "")
        wine("reg.exe", "delete", r"HKCU\Software\Classes\.layout", "/f")
        shutil.rmtree(self.folder)

    def test_notices_a_running_wendlow(self):
        self.assertEqual(self.install(), 0)
        program = subprocess.Popen([WINE, str(self.folder / "wendlow.exe")])
        wait_until(wendlow_shows, "the main window")
        (self.folder / "docs" / "guide.html").unlink()
        self.assertEqual(self.install(), 3)
        self.assertFalse((self.folder / "docs" / "guide.html").exists(), "nothing is installed over a running program")
        # What runs after the uninstaller's first process says so, and no exit code.
        self.assertEqual(wine(self.folder / "uninstall.exe", "/S", *f"_?={windows_path(self.folder)}".split())[0], 3)
        self.assertTrue((self.folder / "wendlow.exe").exists())
        close_wendlow()
        self.assertEqual(program.wait(timeout=60), 0)
        self.assertEqual(self.remove(), 0)
        self.assert_nothing_left()


class Signing(unittest.TestCase):
    """With a certificate that lives as long as the test."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "password").write_text("throw-away")
        key, bundle, password = (self.folder / name for name in ("key", "pfx", "password"))
        self.certificate = self.folder / "crt"
        self.assertEqual(run("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=Throw-away",
                             "-addext", "extendedKeyUsage=codeSigning", "-keyout", key, "-out", self.certificate)[0], 0)
        self.assertEqual(run("openssl", "pkcs12", "-export", "-inkey", key, "-in", self.certificate, "-out", bundle,
                             "-passout", f"file:{password}")[0], 0)
        # Named as a builder may, from where the release is made.
        self.brought = {"WENDLOW_CERTIFICATE": "pfx", "WENDLOW_CERTIFICATE_PASSWORD": "password"}

    def is_signed(self, program):
        return run("osslsigncode", "verify", "-CAfile", self.certificate, "-in", program)[0] == 0

    def test_signs_a_program(self):
        program = unzipped(self.folder) / "wendlow.exe"
        self.assertFalse(self.is_signed(program), "not signed yet")
        code, out = run("env", "-C", self.folder, *(f"{name}={value}" for name, value in self.brought.items()),
                        ROOT / "scripts" / "sign", program)
        self.assertEqual(code, 0, out)
        self.assertTrue(self.is_signed(program))
        changed = bytearray(program.read_bytes())
        changed[0x1000] ^= 1
        program.write_bytes(changed)
        self.assertFalse(self.is_signed(program), "changed after it was signed")

    def test_signs_the_installer(self):
        with unittest.mock.patch.dict(os.environ, self.brought):
            code, setup = made_installer(self.folder, "0.9.0", sign=ROOT / "scripts" / "sign")
        self.assertEqual(code, 0)
        self.assertTrue(self.is_signed(setup))

    def test_makes_no_installer_that_could_not_be_signed(self):
        self.assertNotEqual(made_installer(self.folder, "0.9.0", sign="false")[0], 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
