"""Takes a change of settings all the way round on a demonstration workstation: loads the settings of the local
applications, changes one, looks at the changes, distributes them to the site's database, and loads the distributed
configuration back.

    settingsround.py LAUNCHER FOLDER
"""

import sys
import time

from uidriver import Program, Screen, wait_until
from walk import Walk

NOTES = "Dates as YYYY-MM-DD from now on"


def click(program, name, role="push button"):
    program.find(role, name).click()


def panes(program):
    """The texts of the two panes of a comparison."""
    return [widget.text for widget in program.find_all("text") if "=" in widget.text]


def gone(program, name, role="push button"):
    wait_until(lambda: not program.look(role, name), "%r to close" % name)
    time.sleep(0.3)


def see_changes(program, walk):
    program.menu("Manage online configurations", "See changes made in settings")
    program.find("label", "Settings changes")
    walk.picture("changes")
    left, right = wait_until(lambda: len(panes(program)) == 2 and panes(program), "the changed lines")
    # Nothing but the change: no secret that only was saved again.
    assert left.split() == ["application/date_format=0", "application/date_separator=0"], left
    assert right.split() == ["application/date_format=2", "application/date_separator=1"], right
    click(program, "OK")
    gone(program, "Settings changes", "label")


def distribute(program, walk):
    program.menu("Manage online configurations", "Distribute settings")
    program.find("push button", "Distribute to users")
    notes = next(widget for widget in program.find_all("text") if "release notes" in widget.label.lower()
                 or "release notes" in widget.name.lower())
    notes.type(NOTES)
    walk.picture("distribution")
    click(program, "Distribute to users")
    gone(program, "Distribute to users")


def load_back(program, walk):
    program.menu("Manage online configurations", "Manage settings configurations")
    click(program, "No connection - connect", "push button")
    wait_until(lambda: program.look("combo box", contains="Active in database"), "the active configuration")
    program.find(contains=NOTES)
    walk.picture("configurations")
    click(program, "Load configuration")
    # It is what is there already, so that nothing differs.
    program.find("label", "Settings changes")
    walk.picture("loaded")
    assert not panes(program), panes(program)
    click(program, "OK")
    gone(program, "Settings changes", "label")


def main(launcher, folder):
    with Screen() as screen:
        program = Program([launcher])
        walk = Walk(screen, program, folder)
        try:
            walk.sign_in()
            walk.load_settings()
            walk.change_date_format()
            see_changes(program, walk)
            distribute(program, walk)
            load_back(program, walk)
            walk.close()
        except BaseException:
            walk.picture("stopped-here")
            print(program.tree() if program.running else "The program has ended.")
            raise
        finally:
            program.kill()


if __name__ == "__main__":
    main(*sys.argv[1:])
