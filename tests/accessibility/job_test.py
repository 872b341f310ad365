#!/usr/bin/python3
"""One whole job by the accessibility bus alone, without a key or the pointer: look for the supply,
set, upload, switch on, read, switch off, copy. On a display and a bus of its own:

    with-xvfb dbus-run-session -- job_test.py PANEL SIMULATOR
"""
import subprocess
import sys

from bus import Atspi, act, fail, find, press, running, says, wait_for, wait_for_ratings


def write(field, text, following):
    """Into a field, which is left for the following one to be taken."""
    node = find(field)
    if not Atspi.EditableText.set_text_contents(node, text):
        fail(f"{field} takes no text")
    Atspi.Component.grab_focus(find(following))


def shown(name):
    node = find(name)
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def is_on(switch):
    return find(switch).get_state_set().contains(Atspi.StateType.CHECKED)


def do_job():
    wait_for_ratings()
    press("통신 확인")
    wait_for(lambda: says("통신 확인 결과", "통신ok = ACK수신!!!"), "the answer")
    wait_for_ratings()
    act("ZPS설정", "닫기")
    wait_for(lambda: says("제어 경로", "RS232"), "remote control")
    write("단계 00 전압 V", "12.5", "단계 00 전류 A")
    press("단계 01")
    wait_for(lambda: says("단계 00", "송신됨") and says("단계 01", "선택됨"), "the upload of both")
    press("단계 00")
    wait_for(lambda: says("단계 00", "선택됨"), "step 00")
    if is_on("OUTPUT 출력"):
        fail("the output is on before it has been switched on")
    press("OUTPUT 출력")
    wait_for(lambda: is_on("OUTPUT 출력") and shown("전압 V") == "12.500", "the reading")
    wait_for(lambda: find("측정 데이터 표").get_n_rows() >= 5, "five rows")
    press("OUTPUT 출력")
    wait_for(lambda: not is_on("OUTPUT 출력") and says("출력 상태", "OFF"), "the output off")
    act("측정 데이터 표", "모두 선택")
    act("측정 데이터 표", "복사")
    copied = subprocess.run(["xclip", "-out", "-selection", "clipboard"], check=True, text=True,
                            capture_output=True).stdout.splitlines()
    if len(copied) < 5 or "12.500" not in copied[-1]:
        fail(f"copied: {copied}")
    print(f"The whole job is done, {len(copied)} lines copied")


with running(*sys.argv[1:]):
    do_job()
