#!/usr/bin/python3
"""Every control of the panel has a name and a role on the desktop's accessibility bus, and can be
found, read and pressed through it, as a screen reader does. In a disabled window nothing can be
pressed. On a display and a bus of its own:

    with-xvfb dbus-run-session -- names_test.py PANEL SIMULATOR
"""
import signal
import subprocess
import sys
import time

from bus import Atspi, act, below, choose, fail, find, press, running, says, wait_for, wait_for_ratings

CONTROLS = {
    Atspi.Role.PUSH_BUTTON,
    Atspi.Role.TOGGLE_BUTTON,
    Atspi.Role.TEXT,
    Atspi.Role.COMBO_BOX,
    Atspi.Role.RADIO_BUTTON,
    Atspi.Role.SCROLL_BAR,
    Atspi.Role.TABLE,
}
IN_SETTINGS = {"통신 포트 COM1", "Address 전원 장치 주소", "Model No. 모델 이름", "통신 확인", "DATA 확인"}
IN_MAIN = {"단계 03 전압 V", "단계 00", "OUTPUT 출력", "AUTO STEP 자동 운전 순서", "단계표 이동", "측정 데이터 표"}
IN_TEST = {"ENQ", "DLE"}
IN_ABOUT = {"확인(O)"}
IN_RECORD = {"전체(A)", "오류(E)", "조회 제외(M)", "일시 정지(P)", "복사(C)", "통신 기록 표"}
# What a reader is told of the main window with the output on: role, name, description or text, and
# what of it is checked, editable and reached with Tab. Roles by the bus's own words.
TREE = """
frame|ZPS-RS232||
menu bar|메뉴||
label|모델 이름 ZPS-1500||
label|정격 전압과 전류 150V/10A||
push button|단계 00|선택됨, 실행 중|focusable
push button|단계 01|미송신|focusable
text|단계 00 전압 V|0.00|editable focusable
text|AUTO STEP 자동 운전 순서||editable focusable
text|COUNT 자동 운전 반복 횟수|0|editable focusable
scroll bar|단계표 이동||focusable
label|출력 띠 출력 중||
push button|OUTPUT 출력|켜짐|checked focusable
push button|AUTO 자동 운전|꺼짐|focusable
push button|Vsense ON 원격 센싱|꺼짐|focusable
push button|O.C.P 과전류 보호|켜짐|checked focusable
push button|REMOTE 원격 제어|켜짐|checked focusable
image|출력 표시등|켜짐|
label|출력 상태 ON||
label|제어 경로 RS232||
label|표시값 측정값||
label|동작 모드 CV||
text|전압 V|0.000|editable focusable read-only
text|전류 A|0.0000|editable focusable read-only
label|단계 번호 00||
label|빈 응답 횟수 0||focusable
label|길이 오류 횟수 0||focusable
label|헤더 오류 횟수 0||focusable
"""


def name_of(control):
    """Its name; that of its label for a list, which is itself named after its present choice."""
    relations = control.get_relation_set() if control.get_role() == Atspi.Role.COMBO_BOX else []
    for relation in relations:
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return relation.get_target(0).get_name()
    return control.get_name()


def check_names(window_name, expected):
    window = wait_for(lambda: find(window_name), f"the window {window_name}")
    if window.get_role() == Atspi.Role.FILLER:  # a reader has nothing to announce then
        fail(f"{window_name} is no window")
    controls = [
        node
        for node in below(window)
        if node.get_role() in CONTROLS and node.get_state_set().contains(Atspi.StateType.SHOWING)
    ]
    nameless = [node.get_role_name() for node in controls if not name_of(node).strip()]
    missing = expected - {name_of(node) for node in controls}
    if nameless or missing:
        fail(f"{window_name}: without a name {nameless}, not found by name {sorted(missing)}")
    print(f"{window_name}: {len(controls)} controls, each with name and role")


def close(window_name):
    def gone():
        subprocess.run(["xdotool", "key", "Escape"], check=True)
        return find(window_name) is None
    wait_for(gone, f"the end of {window_name}")


def told_of(node):
    states = node.get_state_set()
    told = node.get_description()
    if node.get_role() == Atspi.Role.TEXT:
        told = Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))
    kept = ("CHECKED", "EDITABLE", "FOCUSABLE", "READ_ONLY")
    has = [state for state in kept if states.contains(getattr(Atspi.StateType, state))]
    marks = " ".join(has).lower().replace("_", "-")
    return f"{node.get_role_name()}|{node.get_name()}|{told}|{marks}"


def check_tree():
    """While it runs; in a moment a badge may not have followed yet."""
    expected = set(TREE.split("\n")) - {""}

    def missing():
        return expected - {told_of(node) for node in below(find("ZPS-RS232"))}
    end = time.monotonic() + 5
    while missing() and time.monotonic() < end:
        time.sleep(0.2)
    if missing():
        fail(f"not told: {sorted(missing())}")
    print(f"{len(expected)} of the main window are told with role, state and value")


def check_log():
    grid = find("측정 데이터 표")
    press("OUTPUT 출력")
    check_tree()
    wait_for(lambda: grid.get_n_rows() > 2, "rows in the log")
    second = [grid.get_accessible_at(2, column) for column in range(grid.get_n_columns())]
    texts = [cell.get_name() for cell in second]
    if texts[0] != "2" or not all(texts) or second[3].get_role() != Atspi.Role.TABLE_CELL:
        fail(f"the log says {texts}")
    if grid.is_row_selected(1) or not grid.add_row_selection(1) or not grid.is_row_selected(1):
        fail("a row of the log can't be selected")


def windows():
    desktop = Atspi.get_desktop(0)
    programs = [desktop.get_child_at_index(index) for index in range(desktop.get_child_count())]
    tops = [top.get_child_at_index(i) for top in programs for i in range(top.get_child_count())]
    return sorted(top.get_name() for top in tops if top.get_state_set().contains(Atspi.StateType.SHOWING))


def check_disabled(panel, supply):
    """While the settings window probes a silent supply, no command of the main window does anything."""
    press("OUTPUT 출력")
    wait_for(lambda: says("출력 상태", "OFF"), "the output switched off")
    choose("ZPS설정(R)")
    wait_for(lambda: find("통신 확인"), "the settings window")
    expected = windows()
    supply.send_signal(signal.SIGSTOP)
    press("통신 확인")
    for command in ("TEST(T)", "ZPS설정(R)", "측정 데이터 삭제(C)", "프로그램 종료(X)"):
        choose(command)
        if panel.poll() is not None or windows() != expected:
            fail(f"{command} in a disabled window: {windows()}, exit code {panel.poll()}")
    wait_for(lambda: panel.poll() or says("통신 확인 결과", "통신에라 = 응답무!!!"), "the end of the probe")
    if panel.poll() is not None or windows() != expected:
        fail(f"after the probe: {windows()}, exit code {panel.poll()}")
    print("A disabled window does nothing")


def use_panel():
    check_names("ZPS설정", IN_SETTINGS)
    wait_for_ratings()
    close("ZPS설정")
    wait_for(lambda: says("제어 경로", "RS232"), "remote control")
    check_names("ZPS-RS232", IN_MAIN)
    if find("입력 대기") or find("cmdFOCUS"):
        fail("what only holds the focus is in the tree")
    press("O.C.P 과전류 보호")
    wait_for(lambda: says("과전류 보호 상태", "ON"), "the switch pressed from outside")
    # What a person sees by colour alone.
    wait_for(lambda: says("과전류 보호 표시등", "켜짐") and says("출력 표시등", "꺼짐"), "the lamps")
    wait_for(lambda: says("단계 00", "선택됨, 송신됨") and says("단계 01", "미송신"), "the rows' states")
    choose("프로그램 정보(A)")
    check_names("ZPS-RS232 정보", IN_ABOUT)
    close("ZPS-RS232 정보")
    choose("통신 기록(L)")
    check_names("통신 기록", IN_RECORD)
    choose("TEST(T)")
    press("일시 정지(P)")  # beside a window that disables the main one
    wait_for(lambda: find("계속(P)"), "the paused record")
    check_names("통신 TEST", IN_TEST)
    press("DLE")
    wait_for(lambda: says("OCP", "켜짐") and says("OUTPUT", "꺼짐"), "the lamps of the bits")
    close("통신 TEST")
    act("통신 상태 조회 안 함", "Press")
    close("통신 기록")
    check_log()


def main():
    with running(*sys.argv[1:]) as (panel, supply):
        use_panel()
        check_disabled(panel, supply)


main()
