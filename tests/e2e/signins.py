"""Signs in on a demonstration workstation in every way that goes through the access database, online and with the
rights of different roles.

    signins.py LAUNCHER FOLDER
"""

import sys

from uidriver import Program, Screen, press_key
from walk import Walk


def connect(program):
    """Takes the connection that the workstation offers."""
    program.find("push button", "Connect").click()


def sign_in_as_windows_user(program):
    program.choose("Authenticated user", "Windows user")
    connect(program)


def sign_in_as_internal_user(program, name, password):
    program.choose("Authenticated user", "Application internal user")
    connect(program)
    program.find("push button", "Sign in")
    fields = [w for w in program.find_all() if w.role in ("text", "password text")]
    fields[0].type(name)
    fields[1].type(password)
    press_key("Return")


def check_home(program, access, audit):
    """Which of the two management buttons the operator's rights allow."""
    program.find("push button", "Settings Management")
    assert program.find("push button", "Access Control Management").enabled == access, "access control"
    assert program.find("push button", "Audit Trail Viewer").enabled == audit, "audit trail"


def refuse(program):
    sign_in_as_internal_user(program, "anna.admin", "wrong")
    program.find("label", "Sign in failed!")


CASES = [
    ("windows-user", sign_in_as_windows_user, (), (True, True)),
    ("admin", sign_in_as_internal_user, ("anna.admin", "demo-anna"), (True, True)),
    ("auditor", sign_in_as_internal_user, ("audrey.auditor", "demo-audrey"), (False, True)),
    ("doctor", sign_in_as_internal_user, ("dora.doctor", "demo-dora"), (False, False)),
    ("refused", refuse, (), None),
]


def main(launcher, folder):
    with Screen() as screen:
        for name, sign_in, arguments, rights in CASES:
            program = Program([launcher])
            walk = Walk(screen, program, folder)
            try:
                sign_in(program, *arguments)
                if rights:
                    check_home(program, *rights)
                walk.picture(name)
                program.close_window()
                code = program.wait()
                assert code == 0, "exit code %d" % code
            except BaseException:
                walk.picture("stopped-at-" + name)
                print(program.tree() if program.running else "The program has ended.")
                raise
            finally:
                program.kill()


if __name__ == "__main__":
    main(*sys.argv[1:])
