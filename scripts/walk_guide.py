"""The walk along the user guide; walk_guide.sh makes the screen for it.
walk_guide.py PROGRAM PLACE PICTURES: the program's file in an example suite in PLACE."""
import glob
import os
import sys
import time

from window_driver import Driver, Failed, run, wait_until

PLOTS = 3000  # scenarios that another program makes meanwhile
WORDS = "plot 00"  # of those that are run
CHOSEN = sum("00" in f"{number:04}" for number in range(1, PLOTS + 1))
FAILING = ("plot 0007", "plot 0014")
GOOD, BAD = "ending_date=2001365 (2001/12/31)", "ending_date=2099365 (2099/12/31)"


class Walk:
    def __init__(self, program, place, pictures):
        self.program, self.place = program, place
        self.use_slow_model()
        self.log = open(os.path.join(pictures, "program.txt"), "w", encoding="utf-8")
        self.user = Driver([program], pictures, self.log)
        self.project = ""

    def use_slow_model(self):
        """In the place of the stand-in for the model, one that takes a second and fails where the weather
        does not last."""
        folder = os.path.dirname(self.program)
        model = os.path.join(folder, "tilverra_5.exe")
        os.makedirs(os.path.join(folder, "model"))
        stand_in = os.path.join(folder, "model", "tilverra_5.exe")
        os.symlink(os.readlink(model), stand_in)
        os.remove(model)
        with open(model, "w", encoding="utf-8") as script:
            script.write(
                "#!/bin/sh\n"
                "for scenario; do :; done\n"
                'file=$(printf %s "$scenario" | sed "s|[\\\\]|/|g; s|^[Cc]:|$TVS_DRIVES/c:|")\n'
                "sleep 1\n"
                'if grep -q "ending_date=2099" "$file"; then\n'
                '    echo "There is no weather after 2001." >&2\n'
                "    exit 3\n"
                "fi\n"
                f'exec "{stand_in}" "$@"\n'
            )
        os.chmod(model, 0o755)

    def file(self, *names):
        return os.path.join(self.project, *names)

    def read(self, *names):
        with open(self.file(*names), encoding="cp1252", newline="") as file:
            return file.read()

    def check(self, what, holds):
        if not holds:
            raise Failed(what)

    # ---- the steps, in the order of the guide

    def start_page(self):
        """The start page offers an example, which becomes a project to work in"""
        wait_until("the start page", lambda: "select file to edit" in self.user.title())
        self.user.picture("start page")
        self.user.press("Example")
        wait_until("the project's window", lambda: self.user.title().startswith("Tilverra project: "))
        name = self.user.title().split(": ", 1)[1].lstrip("*").strip().rstrip("*")
        host = name.replace("\\", "/").replace("C:", os.path.join(self.place, "drive_c"))
        self.project = os.path.splitext(host)[0]
        self.check(f"{host} is not there", os.path.isfile(host))
        self.user.picture("project")

    def edit_and_save(self):
        """A field is edited, the title tells it, and Ctrl+S saves"""
        self.user.fill(self.user.find("text", "Description"), "Walked along the guide")
        self.user.key("Tab")
        wait_until("a star in the title", lambda: "*" in self.user.title())
        self.user.key("ctrl+s")
        wait_until("the title without a star", lambda: "*" not in self.user.title())
        with open(self.project + ".tvp", encoding="cp1252") as file:
            self.check("the description is not in the file", "description=Walked along the guide" in file.read())

    def new_scenario(self):
        """A new scenario, as a copy of the active one"""
        self.user.press("The new scenario is a copy of the active scenario", "check box")
        new = self.user.find("push button", "<- New")
        place = new.get_extents(0)
        run("xdotool", "mousemove", str(place.x + place.width + 60), str(place.y + place.height // 2), "click", "1")
        self.user.type("my own")
        self.user.press("<- New")
        wait_until("the new scenario", lambda: os.path.isfile(self.file("Scenarios", "my own.tvn")))
        self.user.picture("new scenario")

    def run_told(self):
        """It is run by the button, and the end of its run is told"""
        self.user.page("Run")
        self.user.press("Run active/checked scenarios")
        self.user.wait_text(".*my own is running.")
        self.user.wait_text(".*my own has been run.")
        self.check("the run left no output", os.path.isfile(self.file("Scenarios", "my own", "Output", "season.xeb")))
        self.user.picture("one run")

    def many_scenarios(self):
        """Another program makes 3,000 scenarios, which appear by themselves"""
        base = self.read("Scenarios", "base.tvn")
        self.check("the example has changed", GOOD in base)
        for number in range(1, PLOTS + 1):
            name = f"plot {number:04}"
            text = base.replace(GOOD, BAD) if name in FAILING else base
            with open(self.file("Scenarios", name + ".tvn"), "w", encoding="cp1252", newline="") as file:
                file.write(text)
        begun = time.monotonic()
        self.user.wait_text(r"3[,.]?0\d\d scenarios.*", 40)
        self.notes = f"on view {time.monotonic() - begun:.1f} s after the last one was written"
        self.user.picture("3000 scenarios")

    def filter(self, words):
        self.user.key("ctrl+f")
        self.user.key("ctrl+a")
        self.user.type(words) if words else self.user.key("Delete")
        time.sleep(0.5)

    def tick_shown(self, words):
        self.user.menu("View", "Simulation scenarios")
        self.user.press("Deselect all")
        self.filter(words)
        self.user.menu("Edit", "Tick all shown")

    def run_beside(self):
        """147 of them run beside the editor, 40 at a time; two fail"""
        self.tick_shown(WORDS)
        self.user.page("Run")
        self.user.fill(self.user.find("text", "Runs at a time"), "40")
        self.user.picture("to be run")
        self.user.press("Run beside the editor")
        self.user.table_with("Exit code or signal")
        self.user.picture("runs at work")
        self.user.wait_text(f"{CHOSEN - 2} of {CHOSEN} done, 2 failed", 120)
        self.check_journal(CHOSEN, 2)
        self.user.picture("runs with failures")

    def check_journal(self, ends, failures):
        folder = sorted(glob.glob(self.file("Runs", "*")))[-1]
        with open(os.path.join(folder, "journal.txt"), encoding="cp1252") as file:
            lines = file.read().splitlines()
        exits = [line.split()[4] for line in lines if line.startswith("end ")]
        self.check(f"the journal has {len(exits)} ends, not {ends}", len(exits) == ends)
        self.check("the journal does not tell the failures", exits.count("3") == failures)

    def show_log(self):
        """The log of a failed run tells why"""
        table, rows = self.sorted_by_end()
        if rows[0] > 10:  # to the other end
            table, rows = self.sorted_by_end()
        self.user.click(self.user.cell(table, rows[0], 1))
        self.user.press("Show log|Show what the model printed.*")
        wait_until(
            "the log",
            lambda: any("no weather after 2001" in self.user.text_of(memo) for memo in self.user.controls("text", ".*")),
        )
        self.user.picture("log of a failed run")

    def sorted_by_end(self):
        """The table of runs after a click at the heading of its last column, and the rows that have failed."""
        self.user.click(self.user.heading("Exit code or signal"))
        table = self.user.table_with("Exit code or signal")
        rows = [row for row, cells in enumerate(self.user.cells(table)) if "exit code 3" in cells]
        self.check(f"{len(rows)} runs ended with exit code 3", len(rows) == len(FAILING))
        return table, rows

    def repair(self):
        """Both are repaired at once on the page Settings"""
        self.user.menu("View", "Simulation scenarios")
        self.user.press("Deselect all")
        for name in FAILING:
            self.filter(name)
            self.user.menu("Edit", "Tick all shown")
        self.filter("")
        self.user.page("Settings")
        self.before = [self.read("Scenarios", name + ".tvn") for name in FAILING]
        self.user.picture("settings")
        self.user.type("ending_date")  # into the filter, where the page begins
        time.sleep(0.5)
        for _ in FAILING:
            table = self.user.table_with("Key")
            row, column = next(
                (row, column)
                for row, cells in enumerate(self.user.cells(table))
                for column, text in enumerate(cells)
                if "ending_date" in cells and "2099" in text
            )
            self.user.click(self.user.cell(table, row, column), 2)
            year = self.user.find("text", "Year")  # of the calendar
            self.user.fill(year, "2001")
            self.user.key("Return")
        self.user.picture("settings changed")
        self.user.press("Apply")
        self.user.key("Return")
        wait_until("the repaired files", lambda: all("2001365" in self.read("Scenarios", n + ".tvn") for n in FAILING))
        self.after = [self.read("Scenarios", name + ".tvn") for name in FAILING]
        for before, after in zip(self.before, self.after):
            others = [(a, b) for a, b in zip(before.split("\n"), after.split("\n")) if a != b]
            self.check(f"more than a line was changed: {others}", len(others) == 1)

    def run_failed_again(self):
        """The failed ones are run again, and all is done"""
        self.user.menu("View", "Runs")
        self.user.press("Run failed again")
        self.user.wait_text("2 of 2 done", 60)
        for name in FAILING:
            self.check(f"{name} left no output", os.path.isfile(self.file("Scenarios", name, "Output", "season.xeb")))
        self.user.picture("all done")

    def undo(self):
        """The repair is undone, byte for byte, and done again"""
        for wanted, name in ((self.before, "undone"), (self.after, "done again")):
            self.user.menu("Edit", "Undo the last change to scenarios")
            wait_until(f"the files {name}", lambda: [self.read("Scenarios", n + ".tvn") for n in FAILING] == wanted)
        self.user.picture("undo")

    def hand_out(self):
        """All 3,000 are written as a list of command lines, and the page shows them"""
        self.tick_shown("plot")
        self.user.page("Run")
        begun = time.monotonic()
        self.user.press("Write a list of command lines")
        self.user.wait_text("0 of 3,000 done")
        self.notes = f"on view after {time.monotonic() - begun:.1f} s"
        with open(os.path.join(sorted(glob.glob(self.file("Runs", "*")))[-1], "list.txt"), encoding="utf-8") as file:
            lines = len(file.read().splitlines())
        self.check(f"the list has {lines} lines", lines == PLOTS)
        self.user.picture("3000 command lines")

    def close(self):
        """Save/Close ends the program, and a second start finds all as it was"""
        self.user.press("Save/Close")
        self.end()
        self.user = Driver([self.program, self.project + ".tvp", "GIS"], self.user.pictures, self.log)
        self.user.number = 50

    def end(self):
        wait_until("the end of the program", lambda: self.user.process.poll() is not None)
        self.check(f"the program ended with {self.user.process.returncode}", self.user.process.returncode == 0)

    def map(self):
        """The project as one of type GIS shows its map"""
        wait_until("the project's window", lambda: self.user.title().startswith("Tilverra project: "))
        self.user.page("GIS")
        self.user.page("Map")
        self.user.picture("map")
        self.user.key("ctrl+w")
        wait_until("the end, or a question", lambda: self.user.process.poll() is not None)
        self.end()


def main():
    program, place, pictures = sys.argv[1:]
    walk = Walk(program, place, pictures)
    begun = time.monotonic()
    result = 0
    for step in (Walk.start_page, Walk.edit_and_save, Walk.new_scenario, Walk.run_told, Walk.many_scenarios,
                 Walk.run_beside, Walk.show_log, Walk.repair, Walk.run_failed_again, Walk.undo,
                 Walk.hand_out, Walk.close, Walk.map):
        walk.notes = ""
        try:
            step(walk)
            print(f"{time.monotonic() - begun:5.0f} s  {step.__doc__}{': ' if walk.notes else ''}{walk.notes}", flush=True)
        except Failed as failure:
            walk.user.picture("failure")
            print(f"FAILED: {step.__doc__}: {failure}", flush=True)
            result = 1
            break
    if walk.user.process.poll() is None:
        walk.user.process.kill()
    walk.log.close()
    sys.exit(result)


main()
