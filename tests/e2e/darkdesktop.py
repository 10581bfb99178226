"""Shows the sign-in and the settings on a desktop of dark colours.

    darkdesktop.py LAUNCHER FOLDER

The logo, the icons and the style sheets are made for light ground: the window keeps to it.
"""

import os
import subprocess
import sys
import tempfile

from uidriver import Program, Screen
from walk import Walk

DARK = "BackgroundNormal=35,38,41\nForegroundNormal=252,252,252\n"
COLOURS = "".join("[Colors:%s]\n%s" % (group, DARK) for group in ("Window", "View", "Button", "Tooltip"))
LIGHTEST = 255


def dark_desktop(home):
    """The environment of a desktop whose colours Qt takes for every program."""
    config = os.path.join(home, ".config")
    os.makedirs(config)
    with open(os.path.join(config, "kdeglobals"), "w") as file:
        file.write(COLOURS)
    return {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5", "HOME": home,
            "XDG_CONFIG_HOME": config}


def grey_levels(picture, widget):
    """The darkest, the lightest and the mean level of what is painted within a widget, 0 to 255."""
    box = widget.extents()
    area = "%dx%d+%d+%d" % (box.width, box.height, box.x, box.y)
    levels = "%[fx:minima*255] %[fx:maxima*255] %[fx:mean*255]"
    found = subprocess.run(["convert", picture, "-crop", area, "-colorspace", "Gray", "-format", levels, "info:"],
                           capture_output=True, text=True, check=True)
    return [float(level) for level in found.stdout.split()]


def check(walk, name, widgets):
    """Dark letters stand on light ground in each of these widgets."""
    picture = walk.picture(name)
    for role, text in widgets:
        darkest, lightest, mean = grey_levels(picture, walk.program.find(role, text))
        assert mean > 0.75 * LIGHTEST, "%r is dark: %.0f" % (text, mean)
        assert lightest - darkest > 0.5 * LIGHTEST, "%r can't be read: %.0f on %.0f" % (text, darkest, lightest)


def main(launcher, folder):
    with tempfile.TemporaryDirectory() as home, Screen() as screen:
        program = Program([launcher], environment=dark_desktop(home))
        walk = Walk(screen, program, folder)
        try:
            walk.sign_in()
            check(walk, "buttons", [("push button", "Settings Management")])
            program.find("push button", "Settings Management").click()
            program.find("label", "Select settings source from menu below")
            check(walk, "menus", [("menu item", "Manage local application"), ("menu item", "Transfer settings")])
            program.menu("Manage local application", "Load settings from local application")
            program.find("page tab", "General")
            check(walk, "page", [("label", "Date format"), ("combo box", "Date format"), ("check box", "12 hour clock"),
                                 ("text", "Input file"), ("page tab", "Database")])
            program.close_window()
            code = program.wait()
            assert code == 0, "exit code %d" % code
        except BaseException:
            walk.picture("stopped")
            raise
        finally:
            program.kill()


if __name__ == "__main__":
    main(*sys.argv[1:])
