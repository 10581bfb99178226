"""An administrator adds an internal user with the keyboard alone, gives it a role, and signs out; the new user signs
in and may do what the role allows. What is looked at on the way is what a screen reader is told.

    newuser.py LAUNCHER FOLDER
"""

import sys

from signins import check_home, sign_in_as_internal_user
from uidriver import Focus, NotFound, Program, Screen, press_key, wait_until, xdotool
from walk import Walk

USER = "marie.curie"
PASSWORD = "radium-1898"
ROLE = "Auditor"
MOST_TABS = 20
MOST_COLUMNS = 6


def write(text):
    xdotool("type", "--delay", 15, text)


def tab_to(focus, role, name):
    """Presses Tab until this widget has the focus."""
    for _ in range(MOST_TABS):
        if focus.is_on(role, name):
            return
        press_key("Tab")
        focus.settle()
    raise NotFound("the Tab key does not reach the %s %r, but stops at %s" % (role, name, ", ".join(focus.heard)))


def cells(program):
    """The cells of the table of users by name, each with whether it is checked."""
    table = program.find("table", "Users")
    return {cell.name: cell.checked for cell in table.children() if cell.role == "table cell"}


def enter_access_control(walk, focus):
    walk.program.find("push button", "Settings Management")
    tab_to(focus, "push button", "Access Control Management")
    press_key("space")
    walk.program.find("table", "Users")
    wait_until(lambda: cells(walk.program).get("anna.admin: Admin"), "the administrator's role")
    assert cells(walk.program)["anna.admin: Nurse"] is False
    walk.picture("access-control")


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
    assert walk.program.find("push button", "Save").name
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
    for _ in range(MOST_COLUMNS):
        if focus.current().name == check:
            break
        press_key("Right")
        focus.settle()
    assert focus.current().name == check, "the way goes through %s" % ", ".join(focus.heard)
    assert not focus.current().checked
    press_key("space")
    wait_until(lambda: cells(walk.program)[check], "the tick of the new role")
    assert focus.current().checked, "the button tells that it is checked"
    walk.picture("role-given")
    tab_to(focus, "push button", "Save")
    press_key("space")
    wait_until(lambda: not walk.program.find("push button", "Save").enabled, "everything to be saved")
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
