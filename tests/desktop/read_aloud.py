#!/usr/bin/env python3
"""What a screen reader gets: starts the program in a real window under Xvfb, goes to a finding by its menu, and reads
the sheet back over the accessibility bus. Usage: read_aloud.py MERLU TEMPLATE. Ends with 77 where the machine has no
Xvfb or no accessibility bus."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED, NO_DISPLAY = 77, 2
BUS_STARTERS = ["/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher"]
ROOT = "/org/a11y/atspi/accessible/root"
ACCESSIBLE = "org.a11y.atspi.Accessible"
# what a user acts on: each has a name
NAMED = {"text", "push button", "combo box", "check box", "page tab", "page tab list", "tree", "tree table", "menu item"}
BELOW_IS_ITS_OWN = {"tree", "table", "tree table", "combo box", "menu bar"}
WAIT = 60  # seconds

FLARE = """
start {inventory}
set txtUserID 12345
set txtUSER_Company "Blue Water"
set txtUSER_Address1 "1 Quay"
set txtUSER_City Port
set txtUSER_State TX
set txtUSER_Zip 77001
set txtUSER_Contact "A. Person"
set txtUSER_Phone 5551234567
set txtUSER_Email a@b.example
click cmdOK
click cmdUSER_AddStructure
set txtComplxID 1001
set txtStructID 1
set txtArea GI
set txtBlock 43
set txtName A
click cmdOK
click cmdSTRUCTURE_AddEquip
set txtEquipID F1
set cmbEquipType "Combustion Flare"
click cmdOK
click mnuSetEditMode
select "K12345 12017   1001 1FLA      F1"
click cmdEdit
set txtFLA_HrsOperated 900
set txtFLA_VolFlared 1200
click cmdSaveExit
"""


def call(address, dest, path, method, *arguments):
    bus = ["--address", address] if address else ["--session"]
    command = ["gdbus", "call", *bus, "--timeout", "10", "--dest", dest, "--object-path", path, "--method", method]
    return subprocess.run([*command, *arguments], capture_output=True, text=True, timeout=30).stdout


def children(address, dest, path):
    return re.findall(r"\('([^']+)', (?:objectpath )?'([^']+)'\)", call(address, dest, path, ACCESSIBLE + ".GetChildren"))


def plain(quoted):
    return quoted.replace("\\n", "\n").replace("\\'", "'").replace('\\"', '"')


def described(address, dest, path):
    # one by one: the toolkit's side of the bus cannot tell all properties at once
    words = []
    for key in ("Name", "Description"):
        answer = call(address, dest, path, "org.freedesktop.DBus.Properties.Get", ACCESSIBLE, key)
        found = re.search(r"<(?:'((?:[^'\\]|\\.)*)'|\"((?:[^\"\\]|\\.)*)\")>", answer)
        words.append(plain(found.group(1) or found.group(2) or "") if found else "")
    role = re.search(r"\('(.*)',\)", call(address, dest, path, ACCESSIBLE + ".GetRoleName"))
    return (role.group(1) if role else "", *words)


def walk(address, dest, path, seen, into):
    role, name, description = described(address, dest, path)
    seen.append((role, name, description, dest, path))
    if role in BELOW_IS_ITS_OWN and role not in into:
        return
    for child_dest, child in children(address, dest, path):
        walk(address, child_dest, child, seen, into)


def read(address, into=()):
    seen = []
    for dest, path in children(address, "org.a11y.atspi.Registry", ROOT):
        walk(address, dest, path, seen, into)
    return seen


def until(look):
    end = time.time() + WAIT
    while True:
        found = look()
        if found or time.time() > end:
            return found
        time.sleep(0.3)


def hours(address):
    seen = read(address)
    return seen if any(role == "text" and name.startswith("Hours Operated") for role, name, *_ in seen) else None


def errors_of(seen):
    errors = [f"a {role} has no name: {path}" for role, name, _, _, path in seen if role in NAMED and not name]
    controls = [one for one in seen if one[0] in NAMED]
    if len(controls) < 25:
        errors.append(f"only {len(controls)} controls were read")
    found = [description for role, name, description, _, _ in seen if role == "text" and name.startswith("Hours Operated")]
    if found != ["hrs\nValue not in expected range (0 to 744)"]:
        errors.append(f"the hours are described by {found}")
    volumes = [description for role, name, description, _, _ in seen if role == "text" and name.startswith("Volume Flared")]
    if volumes != ["Mscf"]:
        errors.append(f"the volume is described by {volumes}")
    return errors


def started(merlu, inventory):
    """The program, on a screen that may take a moment to answer: without one the program ends with 2."""
    environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    for _ in range(20):
        program = subprocess.Popen([merlu, inventory], env=environment, stderr=subprocess.DEVNULL)
        time.sleep(1)
        if program.poll() != NO_DISPLAY:
            return program
    return program


def read_aloud(merlu, inventory):
    answer = call("", "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress")
    address = re.search(r"'(.*)'", answer).group(1)
    program = started(merlu, inventory)
    try:
        menus = until(lambda: [one for one in read(address, ("menu bar",)) if one[:2] == ("menu item", "Previous Finding")])
        if not menus:
            return ["no menu holds Previous Finding"]
        call(address, menus[0][3], menus[0][4], "org.a11y.atspi.Action.DoAction", "0")
        seen = until(lambda: hours(address))
        return errors_of(seen) if seen else ["the finding's sheet did not come"]
    finally:
        program.kill()
        program.wait()


def main(merlu, template):
    tools = all(shutil.which(tool) for tool in ("Xvfb", "dbus-run-session", "gdbus"))
    if not tools or not any(os.path.exists(starter) for starter in BUS_STARTERS):
        print("Xvfb or the accessibility bus is missing")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        inventory = os.path.join(folder, "inventory.mdb")
        shutil.copy(template, inventory)
        environment = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=folder, XDG_RUNTIME_DIR=folder)
        script = [merlu, "script", "--settings", os.path.join(folder, "settings.ini"), "--stop-on-error"]
        subprocess.run(script, input=FLARE.format(inventory=inventory), text=True, check=True,
                       stdout=subprocess.DEVNULL, env=environment)
        screen = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1366x768x24"],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        try:
            environment["DISPLAY"] = ":" + screen.stdout.readline().decode().strip()
            session = ["dbus-run-session", "--", sys.executable, "-B", os.path.abspath(__file__), "--inside"]
            return subprocess.run([*session, merlu, inventory], env=environment).returncode
        finally:
            screen.kill()
            screen.wait()


if __name__ == "__main__":
    if sys.argv[1] == "--inside":
        wrong = read_aloud(sys.argv[2], sys.argv[3])
        print("\n".join(wrong))
        sys.exit(1 if wrong else 0)
    sys.exit(main(sys.argv[1], sys.argv[2]))
