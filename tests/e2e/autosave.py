"""Works with the settings from the keyboard alone and leaves the saving to the end of the program: switches the
autosave on, changes how the hospital's system exchanges files, and closes; then once more, and once without having
loaded any settings.

    autosave.py LAUNCHER FOLDER
"""

import sys

from newuser import go_to, tab_to
from uidriver import Focus, NotFound, Program, Screen, press_key, wait_until
from walk import Walk

FORMAT = "HIS system file format"
NOTICE = "Autosaving settings to local application settings file. This message is only shown once."
MENU = "Manage local application"
MOST_TABS = 60  # through the whole of the page's first column


def sign_in(walk, focus):
    program = walk.program
    program.find("combo box", "Windows administrator")
    tab_to(focus, "combo box", "Windows administrator")
    press_key("Down")
    program.find("push button", "Settings Management")
    tab_to(focus, "push button", "Settings Management")
    press_key("space")
    program.find("label", "Select settings source from menu below")


def choose(focus, action):
    """Chooses from the menu of the local application."""
    focus.press("Alt_L")
    wait_until(lambda: focus.is_on("menu item", MENU), "the first menu")
    focus.press("Down")
    go_to(focus, "Down", action)
    press_key("Return")


def load(walk, focus):
    choose(focus, "Load settings from local application")
    walk.program.find("page tab", "General")
    assert not walk.program.look("label", "Select settings source from menu below")


def next_format(walk, focus, expected):
    """Chooses the next format of the exchange, which is a setting inside the General tab."""
    tab_to(focus, "combo box", FORMAT, MOST_TABS)
    press_key("Down")
    wait_until(lambda: walk.program.find("combo box", FORMAT).name == expected, "the format %r" % expected)


def end(walk, notice=False):
    program = walk.program
    program.close_window()
    if notice:
        program.find("label", NOTICE)
        walk.picture("notice")
        press_key("Return")
    try:
        code = program.wait()
    except Exception:
        raise NotFound("the program to end; it shows %s" % [w.name for w in program.find_all("label")])
    assert code == 0, "exit code %d" % code


def switch_on_and_change(walk, focus):
    load(walk, focus)
    choose(focus, "Enable autosaving to local application")
    switch = walk.program.find(name="Enable autosaving to local application", showing=False)
    wait_until(lambda: switch.checked, "the tick of the autosave")
    next_format(walk, focus, "GDT 3.0")
    walk.picture("changed")
    end(walk, notice=True)


def change_again(walk, focus):
    load(walk, focus)
    next_format(walk, focus, "XML")
    end(walk)


def load_nothing(walk, focus):
    walk.picture("nothing-loaded")
    end(walk)


def main(launcher, folder):
    pictures = 0
    with Screen() as screen:
        for run in (switch_on_and_change, change_again, load_nothing):
            program = Program([launcher])
            walk = Walk(screen, program, folder)
            walk.count = pictures
            try:
                with Focus() as focus:
                    sign_in(walk, focus)
                    run(walk, focus)
            except BaseException:
                walk.picture("stopped-here")
                print(program.tree() if program.running else "The program has ended.")
                raise
            finally:
                pictures = walk.count
                program.kill()


if __name__ == "__main__":
    main(*sys.argv[1:])
