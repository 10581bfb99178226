"""An administrator's account is made, signs in as "Other user" with a wrong and then with the right password, and
is removed again. Needs root.

    othersignin.py LAUNCHER FOLDER
"""

import os
import subprocess
import sys

from uidriver import Program, Screen, press_key
from walk import Walk

ACCOUNT = "corvane-e2e-%d" % os.getpid()
PASSWORD = "corvane-e2e-secret"


def make_account():
    subprocess.run(["useradd", "--no-create-home", "--shell", "/usr/sbin/nologin", ACCOUNT], check=True)
    subprocess.run(["chpasswd"], input="%s:%s\n" % (ACCOUNT, PASSWORD), text=True, check=True)
    subprocess.run(["groupadd", "--force", "--system", "sudo"], check=True)
    subprocess.run(["usermod", "--append", "--groups", "sudo", ACCOUNT], check=True)


def sign_in(walk):
    program = walk.program
    program.choose("Windows administrator", "Other user")
    program.find("push button", "Sign in")
    walk.picture("sign-in-page")
    fields = [w for w in program.find_all() if w.role in ("text", "password text")]
    user, password = fields[0], fields[1]

    password.type("x")
    press_key("Return")
    program.find("label", "Username needed.")
    user.type(ACCOUNT)
    password.type("")
    press_key("Return")
    program.find("label", "Password needed.")
    password.type("wrong")
    press_key("Return")
    program.find("label", "Sign in failed!")
    walk.picture("failed")
    assert user.text == ACCOUNT, "the typed name stays: %r" % user.text
    password.type(PASSWORD)
    program.find("push button", "Sign in").click()
    program.find("push button", "Audit Trail Viewer")
    walk.picture("home")
    program.close_window()
    code = program.wait()
    assert code == 0, "exit code %d" % code


def main(launcher, folder):
    make_account()
    try:
        with Screen() as screen:
            program = Program([launcher])
            walk = Walk(screen, program, folder)
            try:
                sign_in(walk)
            except BaseException:
                walk.picture("stopped-here")
                print(program.tree() if program.running else "The program has ended.")
                raise
            finally:
                program.kill()
    finally:
        subprocess.run(["userdel", ACCOUNT], check=False)


if __name__ == "__main__":
    main(*sys.argv[1:])
