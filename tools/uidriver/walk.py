"""Walks through the program's main job as a person would, on a virtual screen, and leaves numbered screenshots.

    walk.py LAUNCHER FOLDER

Signs in as the current user, loads the settings of the local applications, looks at what the study plug-ins bring,
changes the date format and saves the settings back, finds that recorded in the audit trail, looks at the about dialog,
and closes the program.
"""

import glob
import os
import sys
import time

from uidriver import NotFound, Program, Screen, press_key, wait_until

SETTLE = 0.7  # seconds for a view to paint before its picture is taken


class Walk:
    def __init__(self, screen, program, folder):
        self.screen = screen
        self.program = program
        self.folder = folder
        self.count = 0

    def picture(self, name):
        time.sleep(SETTLE)
        self.count += 1
        path = os.path.join(self.folder, "%02d-%s.png" % (self.count, name))
        self.screen.screenshot(path)
        print("  " + path, flush=True)
        return path

    def sign_in(self):
        program = self.program
        program.find("combo box", "Windows administrator")
        self.picture("sign-in")
        user = next(item.name for item in program.find("combo box", "Windows administrator").descendants()
                    if item.name.startswith("Current user"))
        program.choose("Windows administrator", user)
        try:
            program.find("push button", "Settings Management")
        except NotFound:
            if program.look("label", "Sign in failed!"):
                raise NotFound("%r is no administrator of this machine (root, or in sudo, wheel or admin)" % user)
            raise
        self.picture("home")

    def load_settings(self):
        program = self.program
        program.find("push button", "Settings Management").click()
        program.find("label", "Select settings source from menu below")
        self.picture("settings-source")
        program.find("menu item", "Manage local application").click()
        self.picture("settings-menu")
        program.find("menu item", "Load settings from local application").click()
        program.find("page tab", "General")
        self.picture("settings-general")

    def look_at_study_fields(self):
        program = self.program
        program.find("page tab", "Study fields").click()
        program.choose("Study information settings for", "Spirometry")
        program.find("check box", "Smoking history")
        self.picture("settings-study-fields")
        program.find("page tab", "General").click()

    def change_date_format(self):
        self.program.choose("Date format", "YYYY-MM-DD")
        self.picture("date-format-changed")

    def save_settings(self):
        program = self.program
        program.menu("Manage local application", "Save settings to local application")
        program.find(contains="Saving succeeded.")
        self.picture("settings-saved")
        program.find("push button", "Ok").click()
        wait_until(lambda: not program.look(contains="Saving succeeded."), "the message to close")

    def find_it_recorded(self):
        program = self.program
        program.find("push button", "Audit Trail Viewer").click()
        program.find("push button", "Connect to database").click()
        wait_until(lambda: program.look("combo box", "Select connection configuration") or
                   program.look(name="Time (UTC)"), "the audit trail or its connection options")
        if program.look("combo box", "Select connection configuration"):
            program.choose("Select connection configuration", "offline")
            self.picture("audit-connection")
            program.find("push button", "Save").click()
        program.find(name="Time (UTC)").click()  # the newest events first
        program.find("table cell", "SaveSettings")
        self.picture("audit-trail")

    def look_at_about(self):
        program = self.program
        program.find("push button", "About").click()
        program.find("dialog")
        self.picture("about")
        press_key("Return")
        wait_until(lambda: not program.look("dialog"), "the about dialog to close")

    def close(self):
        self.program.close_window()
        code = self.program.wait()
        if code != 0:
            raise NotFound("the program ended with code %d" % code)

    def run(self):
        self.sign_in()
        self.load_settings()
        self.look_at_study_fields()
        self.change_date_format()
        self.save_settings()
        self.find_it_recorded()
        self.look_at_about()
        self.close()


def main(launcher, folder):
    os.makedirs(folder, exist_ok=True)
    for old in glob.glob(os.path.join(folder, "[0-9][0-9]-*.png")):
        os.remove(old)
    with Screen() as screen:
        program = Program([launcher])
        walk = Walk(screen, program, folder)
        print("Walking through the main job; pictures:", flush=True)
        try:
            walk.run()
        except Exception as problem:
            walk.picture("stopped-here")
            if program.running:
                print("The walk stopped: %s" % problem, file=sys.stderr)
            else:
                print("The program has ended by itself with code %d, which is 1 where it already runs on this machine."
                      % program.wait(), file=sys.stderr)
            return 1
        finally:
            program.kill()
    print("The whole walk succeeded. Screenshots: " + os.path.abspath(folder))
    return 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
