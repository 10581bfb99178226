"""An administrator adds a role and an internal user with the keyboard alone, gives the role to the user, and signs
out; the new user signs in and may do what the role allows. What is looked at on the way is what a screen reader is
told.

    newuser.py LAUNCHER FOLDER
"""

import sys

from signins import check_home, sign_in_as_internal_user
from uidriver import Focus, NotFound, Program, Screen, press_key, wait_until, xdotool
from walk import Walk

USER = "marie.curie"
PASSWORD = "radium-1898"
ROLE = "Archivist"
MOST_TABS = 20
MOST_STEPS = 20


def write(text):
    xdotool("type", "--delay", 15, text)


def tab_to(focus, role, name, most=MOST_TABS):
    """Presses Tab until this widget has the focus."""
    for _ in range(most):
        if focus.is_on(role, name):
            return
        focus.press("Tab")
    raise NotFound("the Tab key does not reach the %s %r, but stops at %s" % (role, name, ", ".join(focus.heard)))


def go_to(focus, key, name):
    """Presses a key until the widget with this name has the focus."""
    for _ in range(MOST_STEPS):
        if focus.current().name == name:
            return
        focus.press(key)
    raise NotFound("%s does not reach %r, but stops at %s" % (key, name, ", ".join(focus.heard)))


def cells(program, table="Users"):
    """The cells of a table by name, each with whether it is checked."""
    rows = program.find("table", table).children()
    return {cell.name: cell.checked for cell in rows if cell.role == "table cell"}


def save(program, focus):
    tab_to(focus, "push button", "Save")
    press_key("space")
    wait_until(lambda: not program.find("push button", "Save").enabled, "everything to be saved")


def enter_access_control(walk, focus):
    walk.program.find("push button", "Settings Management")
    tab_to(focus, "push button", "Access Control Management")
    press_key("space")
    walk.program.find("table", "Users")
    wait_until(lambda: cells(walk.program).get("anna.admin: Admin"), "the administrator's role")
    assert cells(walk.program)["anna.admin: Nurse"] is False
    walk.picture("access-control")


def add_role(walk, focus):
    program = walk.program
    tab_to(focus, "combo box", "Users")
    press_key("Down")
    tab_to(focus, "push button", "Add new role")
    press_key("space")
    wait_until(lambda: focus.is_on("text", "Name"), "the field of the role's name")
    write(ROLE)
    walk.picture("new-role")
    press_key("Return")
    wait_until(lambda: ROLE in cells(program, "Roles"), "the new role's column")

    audit, create = "%s: Audit trail management" % ROLE, "%s: Create person" % ROLE
    tab_to(focus, "push button", ROLE)  # the table is entered at the new column
    go_to(focus, "Down", audit)
    press_key("space")
    go_to(focus, "Down", create)
    press_key("space")
    wait_until(lambda: cells(program, "Roles")[create], "the tick of the right")
    given = {name for name, checked in cells(program, "Roles").items() if checked and name.startswith(ROLE)}
    follow = {"%s: %s person" % (ROLE, what) for what in ("Read", "Modify")}
    assert given == {audit, create} | follow, given
    walk.picture("rights-given")
    save(program, focus)
    tab_to(focus, "combo box", "Roles")
    press_key("Up")
    wait_until(lambda: program.look("table", "Users"), "the table of users")


def add_user(walk, focus):
    tab_to(focus, "push button", "Add new internal user")
    press_key("space")
    wait_until(lambda: focus.is_on("text", "Last Name"), "the first field of the new user")
    for text in ("Curie", "Salomea", "Marie"):
        write(text)
        press_key("Tab")
    for label in ("Organisation", "Department"):
        wait_until(lambda: focus.current().label == label, "the field %r" % label)
        press_key("Down", "Tab")
    wait_until(lambda: focus.is_on("text", "Username"), "the field of the username")
    write(USER)
    press_key("Tab")
    wait_until(lambda: focus.is_on("password text", "Password") or focus.is_on("text", "Password"),
               "the field of the password")
    write(PASSWORD)
    press_key("Tab")
    write(PASSWORD[:-1])
    press_key("Return")  # without effect while the two differ
    walk.picture("passwords-differ")
    assert walk.program.look("dialog", "Internal user"), "the dialog stays open while the passwords differ"
    write(PASSWORD[-1])
    walk.picture("new-user")
    press_key("Return")
    wait_until(lambda: USER in cells(walk.program), "the new user's row")
    assert not walk.program.look("dialog", "Internal user")


def give_role(walk, focus):
    tab_to(focus, "push button", USER)  # the table is entered at the new row
    check = "%s: %s" % (USER, ROLE)
    go_to(focus, "Right", check)
    assert not focus.current().checked
    press_key("space")
    wait_until(lambda: cells(walk.program)[check], "the tick of the new role")
    assert focus.current().checked, "the button tells that it is checked"
    walk.picture("role-given")
    save(walk.program, focus)
    assert cells(walk.program)[check]
    walk.picture("saved")


def close(program):
    program.close_window()
    code = program.wait()
    assert code == 0, "exit code %d" % code


def run(screen, launcher, folder, steps):
    program = Program([launcher])
    walk = Walk(screen, program, folder)
    walk.count = run.pictures
    try:
        steps(walk)
        close(program)
    except BaseException:
        walk.picture("stopped-here")
        print(program.tree() if program.running else "The program has ended.")
        raise
    finally:
        run.pictures = walk.count
        program.kill()


run.pictures = 0


def administrator(walk):
    sign_in_as_internal_user(walk.program, "anna.admin", "demo-anna")
    with Focus() as focus:
        enter_access_control(walk, focus)
        add_role(walk, focus)
        add_user(walk, focus)
        give_role(walk, focus)


def new_user(walk):
    sign_in_as_internal_user(walk.program, USER, PASSWORD)
    check_home(walk.program, access=False, audit=True)
    walk.picture("home-of-the-new-user")


def main(launcher, folder):
    with Screen() as screen:
        run(screen, launcher, folder, administrator)
        run(screen, launcher, folder, new_user)


if __name__ == "__main__":
    main(*sys.argv[1:])
