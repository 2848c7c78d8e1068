#!/usr/bin/env python3
"""What a screen reader gets: starts the program in a real window under Xvfb, goes to a finding, shows the docks and opens
the dialogs by the menus, and reads all of it back over the accessibility bus. Usage: read_aloud.py MERLU TEMPLATE. Ends
with 77 where the machine has no Xvfb or no accessibility bus."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

try:
    import dbus
    import dbus.bus
except ImportError:
    dbus = None

SKIPPED, NO_DISPLAY = 77, 2
BUS_STARTERS = ["/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher"]
ROOT = "/org/a11y/atspi/accessible/root"
ACCESSIBLE = "org.a11y.atspi.Accessible"
PROPERTIES = "org.freedesktop.DBus.Properties"
# what a user acts on or reads by itself: each has a name
NAMED = {"text", "push button", "combo box", "check box", "radio button", "page tab", "page tab list", "tree",
         "tree table", "table", "menu item", "check menu item", "dialog"}
NO_ROLE = {"", "invalid", "unknown"}
BELOW_IS_ITS_OWN = {"tree", "table", "tree table", "combo box", "menu bar", "list"}
WAIT = 120  # seconds, for a machine that does much else
# by its menu entry, with the button that closes it and a control that it has
DIALOGS = [("Ready to Hand In...", "Close", "Checks"), ("Change History...", "Close", "Steps"),
           ("Go To...", "Cancel", "Found:"), ("Backups...", "Close", "Backups"), ("Month Grid...", "Close", "Month"),
           ("Export MERLU-2017 Monthly Survey", "Close", "Surveys:"), ("Keyboard Shortcuts", "Close", "Keyboard Shortcuts")]
DOCKS = [("Findings", ["Filter:", "State:", "When:", "Edit QC Comment"]), ("Completeness", ["Show:"]),
         ("Twelve Months", [])]

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


class Screen:
    """The program's windows as the accessibility bus tells them."""

    def __init__(self, address):
        self.bus = dbus.bus.BusConnection(address)

    def call(self, at, interface, method, signature="", arguments=()):
        return self.bus.call_blocking(at[0], at[1], interface, method, signature, arguments, timeout=30)

    def children(self, at):
        return [(str(one[0]), str(one[1])) for one in self.call(at, ACCESSIBLE, "GetChildren")]

    def described(self, at):
        # one by one: the toolkit's side of the bus cannot tell all properties at once
        words = [str(self.call(at, PROPERTIES, "Get", "ss", (ACCESSIBLE, key))) for key in ("Name", "Description")]
        return (str(self.call(at, ACCESSIBLE, "GetRoleName")), *words)

    def is_visible(self, at):
        return bool(int(self.call(at, ACCESSIBLE, "GetState")[0]) & 1 << 30)

    def walk(self, at, seen, into):
        role, name, description = self.described(at)
        if role not in NAMED or name or self.is_visible(at):
            seen.append((role, name, description, at))
        if role in BELOW_IS_ITS_OWN and role not in into:
            return
        for child in self.children(at):
            self.walk(child, seen, into)

    def read(self, into=()):
        """Everything on the screen; nothing while it is being changed."""
        seen = []
        try:
            for program in self.children(("org.a11y.atspi.Registry", ROOT)):
                self.walk(program, seen, into)
        except dbus.exceptions.DBusException:
            return []
        return seen

    def act(self, at):
        # a dialog answers only when it is closed again
        message = dbus.lowlevel.MethodCallMessage(at[0], at[1], "org.a11y.atspi.Action", "DoAction")
        message.append(0, signature="i")
        message.set_no_reply(True)
        self.bus.send_message(message)
        self.bus.flush()


def until(look):
    end = time.time() + WAIT
    while True:
        found = look()
        if found or time.time() > end:
            return found
        time.sleep(0.1)


def first(seen, name, roles):
    return next((one[3] for one in seen if one[1] == name and one[0] in roles), None)


def unit_of(name):
    found = re.search(r"\(([^()]{1,22})\)[^()]*$", name)
    return found.group(1) if found else ""


def errors_of(where, seen):
    errors = [f"{where}: a {role} has no name: {at[1]}" for role, name, _, at in seen if role in NAMED and not name]
    errors += [f"{where}: \"{name}\" has the role \"{role}\"" for role, name, _, _ in seen if name and role in NO_ROLE]
    return errors


def errors_of_sheet(seen):
    errors = []
    fields = [(name, description) for role, name, description, _ in seen if role == "text" and name.endswith(":")]
    if len(fields) < 8:
        errors.append(f"only {len(fields)} fields were read")
    for name, description in fields:
        if unit_of(name) and not description.startswith(unit_of(name)):
            errors.append(f"\"{name}\" is described by \"{description}\", without its unit")
    told = dict(fields)
    for caption, wanted in (("Hours Operated", "hrs\nValue not in expected range (0 to 744)"), ("Volume Flared", "Mscf")):
        found = [description for name, description in told.items() if name.startswith(caption)]
        if found != [wanted]:
            errors.append(f"{caption}: described by {found}")
    return errors


def started(merlu, inventory):
    """The program, on a screen that may take a moment to answer: without one the program ends with 2."""
    environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    end = time.time() + WAIT
    while True:
        program = subprocess.Popen([merlu, inventory], env=environment, stderr=subprocess.DEVNULL)
        time.sleep(1)
        if program.poll() != NO_DISPLAY or time.time() > end:
            return program


MENU_ROLES = ("menu item", "check menu item")


def give(screen, command):
    entry = until(lambda: first(screen.read(("menu bar",)), command, MENU_ROLES))
    if entry is not None:
        screen.act(entry)
    return entry is not None


def showing(screen, names):
    """What is on the screen, once all these names are; the last look when they do not come."""
    last = []

    def look():
        last[:] = screen.read()
        return {one[1] for one in last}.issuperset(names)

    until(look)
    missing = set(names) - {one[1] for one in last}
    return last, [f"\"{name}\" did not come" for name in sorted(missing)]


def read_dialog(screen, command, close, control):
    if not give(screen, command):
        return [f"no menu holds {command}"]
    seen, errors = showing(screen, [control])
    if errors:
        return errors
    errors = errors_of(command, seen)
    # the dialog's own button is the last of that name
    buttons = [at for role, name, _, at in seen if role == "push button" and name == close]
    if not buttons:
        return errors + [f"{command}: no {close}"]
    dialogs = sum(role == "dialog" for role, *_ in seen)
    screen.act(buttons[-1])
    if not until(lambda: sum(one[0] == "dialog" for one in screen.read() or seen) < dialogs):
        errors.append(f"{command}: it did not close")
    return errors


def read_all(screen):
    if not give(screen, "Previous Finding"):
        return ["no menu holds Previous Finding"]
    hours = "Hours Operated (hrs), including upsets:"
    seen, errors = showing(screen, [hours])
    if errors:
        return errors
    errors = errors_of("sheet", screen.read(("menu bar",))) + errors_of_sheet(seen)
    for command, controls in DOCKS:
        if not give(screen, command):
            errors.append(f"no menu holds {command}")
            continue
        seen, missing = showing(screen, controls)
        errors += missing + errors_of(command, seen)
        give(screen, command)
    for dialog in DIALOGS:
        errors += read_dialog(screen, *dialog)
    return errors


def read_aloud(merlu, inventory):
    bus = dbus.SessionBus()
    address = str(bus.call_blocking("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", "", (), timeout=WAIT))
    program = started(merlu, inventory)
    try:
        errors = read_all(Screen(address))
        if program.poll() is not None:
            errors.append(f"the program ended with {program.returncode}")
        return errors
    finally:
        program.kill()
        program.wait()


def main(merlu, template):
    tools = all(shutil.which(tool) for tool in ("Xvfb", "dbus-run-session"))
    if dbus is None or not tools or not any(os.path.exists(starter) for starter in BUS_STARTERS):
        print("Xvfb, the accessibility bus or Python's way to it is missing")
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
