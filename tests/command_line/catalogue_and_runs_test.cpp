// Making, copying, importing, deleting and running scenarios from a shell, and undoing it.
#include "command_line/example_journey.h"

using Catalogue_and_runs_test = Example_journey;

TEST_F(Catalogue_and_runs_test, what_is_made_copied_imported_and_deleted_can_be_told_and_undone) {
    const std::string project = project_file("Irrigation_study.tvp");
    const std::string base = project_file("Irrigation_study/Scenarios/base.tvn");
    expect({
        {"tvs_project new Irrigation_study 'plot 7' base ../x .. $'\\u0416' 'bad\"q' 'a*b' $'c\\x7f'",
         "plot 7\tdone\t\nbase\tfailed\tThere is a scenario of that name already.\nx\tdone\t\n"
         "..\tfailed\tNo scenario can have this name.\n\u0416\tfailed\tThe name has a character that "
         "records cannot hold.\nbad\"q\tfailed\tNo scenario can have this name.\na*b\tfailed\tNo scenario "
         "can have this name.\nc\x7f\tfailed\tNo scenario can have this name.\n",
         1, "6 of 8 failed: base, .., \u0416, bad\"q"},
        {"tvs_project new Irrigation_study $'\\xff/..' --json | grep -c 'cannot hold'", "1\n", 0,
         "1 of 1 failed"},
        {"cp Irrigation_study/Import/*.sim 'bad\"q.sim'; tvs_project import Irrigation_study *.sim; rm "
         "*.sim; tvs_project copy Irrigation_study base 'bad\"q'",
         "bad\"q\tfailed\tNo scenario can have this name.\n"
         "bad\"q\tfailed\tNo scenario can have this name.\n",
         1, "1 of 1 failed: bad\"q"},
        {"tvs_project get Irrigation_study/Scenarios/x.tvn parameter_filenames.soil",
         "<Required (This must be selected)>\n"},
        {"tvs_project copy Irrigation_study.tvp base 'base 2' base.v3.tvn",
         "base 2\tdone\t\nbase.v3\tdone\t\n"},
        {"cd Irrigation_study/Scenarios; cmp base.tvn 'base 2.tvn' && cmp base.tvn base.v3.tvn"},
        {"tvs_project rename Irrigation_study 'base 2' third.tvn; tvs_project rename Irrigation_study third "
         "base",
         "base 2\tdone\t\n", 3, "There is something of this name already"},
        {"cd Irrigation_study/Scenarios; mv third.tvn 'base 2.tvn'"},
        {"tvs_project copy Irrigation_study 'b*' c", "", 2, "'b*' names more than one scenario."},
        {"tvs_project import Irrigation_study Irrigation_study/Import/*.sim none.sim",
         "spring barley 1985\tdone\t\nnone\tfailed\tThe file cannot be read.\n", 3, "1 of 2 failed: none"},
        {"tvs_project import Irrigation_study Irrigation_study/Import/*.sim",
         "spring barley 1985\tfailed\tThere is a scenario of that name already. Say --replace to replace "
         "it.\n",
         1, "1 of 1 failed"},
        {"echo changed >Irrigation_study/Scenarios/spring*.tvn; tvs_project import Irrigation_study "
         "--replace Irrigation_study/Import/*.sim; tvs_project undo Irrigation_study; cat "
         "Irrigation_study/Scenarios/spring*.tvn",
         "spring barley 1985\tdone\t\nchange\tundo of import\nbrought_back\t1\nfailed\t0\nchanged\n", 0,
         "The change that is undone: import, "},
        {"tvs_project delete Irrigation_study", "", 2, "or --all"},
        {"tvs_project delete Irrigation_study 'x*' 'none*'", "", 1, "Nothing was done."},
        {"tvs_project delete Irrigation_study 'base*' --dry-run",
         "base\twould be deleted\t\nbase 2\twould be deleted\t\nbase.v3\twould be deleted\t\n"},
        {"HOME=$PWD XDG_DATA_HOME=/proc/none tvs_project delete Irrigation_study x",
         "x\tfailed\tIt could not be moved to the trash.\n", 3, "Say --permanently"},
        {"tvs_project delete Irrigation_study 'base ?' spring*",
         "base 2\tdone\t\nspring barley 1985\tdone\t\n"},
        {"mkdir -p Irrigation_study/Scenarios/x; echo 1 >Irrigation_study/Scenarios/x/out; tvs_project "
         "delete Irrigation_study x --permanently; ls Irrigation_study/Scenarios | grep -c x; tvs_project "
         "undo Irrigation_study >/dev/null; cat Irrigation_study/Scenarios/x/out",
         "x\tdone\t\n0\n1\n", 0, "What has since been deleted into the trash lies there"},
        {"tvs_project set Irrigation_study salt.1=1 --all >/dev/null; tvs_project undo Irrigation_study "
         "--list | cut -f 2,4 | head -1; tvs_project undo Irrigation_study --json | grep -c -e '\"change\": "
         ".undo of settings' -e '\"brought_back\": 8'",
         "settings\t8\n2\n", 0, "undone: settings"},
        // What others have changed since is put back only when that is wanted.
        {"tvs_project set Irrigation_study/Scenarios/base.tvn salt.1=2 >/dev/null; touch -d 1min "
         "Irrigation_study/Scenarios/base.tvn; tvs_project undo Irrigation_study",
         "", 1, "Changed since by others: Scenarios\\base.tvn\ntvs_project: Nothing was undone."},
        {"tvs_project undo Irrigation_study --yes --json | grep -c -e undo.of.settings -e 'back\": 1'", "2\n",
         0, "undone: settings"},
        // Who can be asked is asked.
        {"echo n | script -qec 'tvs_project undo Irrigation_study' /dev/null | grep -o 'Nothing was undone'",
         "Nothing was undone\n"},
        {"tvs_project undo Irrigation_study --change none", "", 1, "There is no such change: none"},
    });
    EXPECT_EQ(project_file("Irrigation_study/Scenarios/base.tvn"), base);
    EXPECT_EQ(project_file("Irrigation_study.tvp"), project);
    expect({
        {"tvs_project new Irrigation_study last --activate", "last\tdone\t\n"},
        {"tvs_project get Irrigation_study.tvp recent.active",
         "C:\\Simulation\\Projects\\Irrigation_study\\Scenarios\\last.tvn\n"},
    });
}

TEST_F(Catalogue_and_runs_test, runs_tell_how_they_ended_and_are_repeated_where_they_failed) {
    script_model("[ $name != base.tvn ] || exit 3");
    expect({
        {"tvs_project run Irrigation_study", "", 2, "or --all"},
        // The scheduler's own tool would try for a minute.
        {"mkdir t; ln -s /bin/false t/scontrol; PATH=$PWD/t:$PATH tvs_project run Irrigation_study base "
         "--engine slurm",
         "", 1, "The scheduler does not answer."},
        {"tvs_project status Irrigation_study", "", 1, "The project has no set of runs."},
        {"tvs_project run Irrigation_study base --dry-run",
         "\"C:\\Program Files\\TVS_suite\\Tilverra\\tilverra_5.exe\"  "
         "\"C:\\Simulation\\Projects\\Irrigation_study.tvp\" "
         "\"C:\\Simulation\\Projects\\Irrigation_study\\Scenarios\\base.tvn\" \n"},
        // A name that no program can be handed is one failure among the others.
        {"mkdir -p Irrigation_study/Scenarios/{rainfed,plateau,base}/Output; cd Irrigation_study/Scenarios; "
         "cp base.tvn 'bad\"q.tvn'; tvs_project run ../../Irrigation_study base rainfed 'bad*' --jobs 1 | "
         "cut -f 1-3; rm 'bad\"q.tvn'",
         "bad\"q\tfailed\tA name that holds a quotation mark or a control character cannot be handed to a "
         "program.\nbase\tfailed\texit code 3\nrainfed\tdone\t\n",
         0, "1 of 2 done, 1 failed.\ntvs_project: 1 of 2 failed: base\n"},
        {"tvs_project list Irrigation_study --state failed,done | cut -f 1,2",
         "base\tfailed\nrainfed\tdone\n"},
        {"tvs_project status Irrigation_study --runs --json | grep -c '\"state\":\"failed\"'", "1\n"},
        {"mv good '../../Program Files/TVS_suite/Tilverra/tilverra_5.exe'; tvs_project run Irrigation_study "
         "--failed | cut -f 1,2",
         "base\tdone\n", 0, "1 of 1 done"},
        {"tvs_project run Irrigation_study --failed", "", 0, "There is nothing to run."},
        {"tvs_project run Irrigation_study --stale --json | grep -c '\"state\":\"done\"'", "3\n", 0,
         "3 of 3 done"},
        {"touch Irrigation_study/Scenarios/base.tvn; tvs_project list Irrigation_study --state stale | cut "
         "-f 1,2",
         "base\tout of date\n"},
        {"tvs_project continue Irrigation_study", "", 0, "is left."},
        // Every call is one document, of the same shape when there is nothing to do.
        {"for call in 'run --failed' 'run --failed --background' 'run --failed --dry-run' 'run base "
         "--dry-run' 'run base --engine list' 'run --failed --engine list' continue 'run base' continue "
         "'continue --background' status 'status --runs' stop 'compare base rainfed' 'compare plateau base'; "
         "do set -- "
         "$call; tvs_project $1 Irrigation_study ${@:2} --json 2>/dev/null | python3 -c 'import json, sys; "
         "told = "
         "json.load(sys.stdin); rows = told if type(told) is list else [told]; print(*sys.argv[1:], "
         "len(told), *(rows[0] if rows else []))' $call; done; tvs_project convert "
         "Irrigation_study/Scenarios/base.tvn none --json | python3 -m json.tool | grep -c outcome",
         "run --failed 0\n"
         "run --failed --background 3 set runs failed\n"
         "run --failed --dry-run 0\n"
         "run base --dry-run 1 scenario command reason\n"
         "run base --engine list 1 scenario command reason\n"
         "run --failed --engine list 0\n"
         "continue 1 scenario command reason\n"
         "run base 1 scenario state reason seconds started\n"
         "continue 1 scenario state reason seconds started\n"
         "continue --background 3 set runs failed\n"
         "status 9 set runs at_work total done failed stopped running waiting\n"
         "status --runs 1 scenario state reason seconds started\n"
         "stop 1 refused\n"
         "compare base rainfed 1 scenario outcome reason\n"
         "compare plateau base 1 scenario outcome reason\n"
         "2\n",
         0, "1 of 2 failed: none"},
        {"for dry in --dry-run ''; do tvs_project run Irrigation_study base --engine list $dry; done | sed "
         "'s|Runs/[-0-9 ]*|R|g' | uniq | grep -c '^sh .*/R/worker.sh. .*/R. run 0$'",
         "1\n", 0, "Without --dry-run"},
        // What another machine has begun holds its scenario until that is said to be gone.
        {"cd \"$(ls -d Irrigation_study/Runs/* | tail -1)\"; echo 'start 2026-03-01T12:00:00.000Z 0 node7 1 "
         "7 "
         "9 .' >>journal.txt; cd - >/dev/null; tvs_project status Irrigation_study | sed -n 7,8p; "
         "tvs_project "
         "stop Irrigation_study --gone | tail -1; tvs_project rename Irrigation_study base x",
         "stopped\t0\nrunning\t1\nruns\t0 of 1 done, 1 stopped\nbase\tdone\t\n", 0,
         "node7 has runs of the set and cannot be asked from here. Its last sign: 2026-03-01T12"},
    });
}

TEST_F(Catalogue_and_runs_test, runs_in_the_background_are_watched_stopped_and_continued) {
    script_model("[ -e go ] || sleep 60");
    expect({
        {"mkdir -p Irrigation_study/Scenarios/{rainfed,base}/Output; tvs_project set Irrigation_study "
         "salt.2=1 --scenarios base >/dev/null"},
        {"tvs_project run Irrigation_study base rainfed --jobs 1 --background | cut -f 1,2 | tail -1",
         "runs\t2\n"},
        {"until tvs_project status Irrigation_study | grep -q 'running.1'; do sleep 0.1; done; tvs_project "
         "list Irrigation_study --state running,waiting | cut -f 1,2",
         "base\trunning\nrainfed\twaiting\n"},
        {"tvs_project rename Irrigation_study rainfed x", "", 1, "being run: rainfed"},
        {"tvs_project undo Irrigation_study", "", 1, "being run: base"},
        {"tvs_project set Irrigation_study/Scenarios/base.tvn salt.1=1", "", 1, "being run: base"},
        {"tvs_project delete-runs Irrigation_study --all | cut -f 2,3",
         "failed\tIt is being run. Stop it first.\n", 0, "1 of 1 failed"},
        // Only root can be another user.
        {"chmod -R a+rX ../../../..; [ $UID = 0 ] || { echo belong to another user >&2; exit 1; }; setpriv "
         "--reuid=65534 --regid=65534 --clear-groups tvs_project stop Irrigation_study",
         "", 1, "belong to another user"},
        {"tvs_project stop Irrigation_study | tail -1", "runs\t0 of 2 done, 1 stopped, 1 waiting\n"},
        {"tvs_project stop Irrigation_study", "", 1, "No process has the set"},
        {"touch Irrigation_study/go; tvs_project continue Irrigation_study | cut -f 1,2",
         "base\tdone\nrainfed\tdone\n", 0, "2 of 2 done"},
        // One that cannot be read is not passed over for an older one.
        {"cp -R Irrigation_study/Runs/2* Irrigation_study/Runs/9; echo >Irrigation_study/Runs/9/set.txt; "
         "tvs_project continue Irrigation_study",
         "", 3, "The set of runs '9' cannot be read"},
        {"tvs_project list Irrigation_study --state unknown | wc -l; tvs_project status Irrigation_study "
         "--sets | cut -f 1,2 | "
         "sed 's/^2.*\t/2\t/'",
         "5\n9\tunreadable\n2\tdone\n", 0, "set.txt is damaged"},
        {"tvs_project log Irrigation_study base", "", 3, "The set of runs '9'"},
        {"tvs_project delete-runs Irrigation_study 9; (cd Irrigation_study/Runs/2*; mkdir printed; echo it "
         "is wrong "
         ">printed/0.txt); tvs_project log Irrigation_study base; tvs_project list Irrigation_study --state "
         "done | wc -l",
         "9\tdone\t\nit is wrong\n2\n"},
    });
}

TEST_F(Catalogue_and_runs_test, families_come_from_tables_and_the_example_does_a_nights_work_on_one) {
    // The model fails for one scenario, the first time.
    script_model("if [ $name = 00003.tvn ] && mkdir failed 2>/dev/null; then exit 7; fi",
                 "Generated_scenarios");
    expect({
        {"printf 'name;salt.1;simulation.starting_date\na;0.5;1996-02-30\nb;much;\n' >t.csv; tvs_project "
         "generate Irrigation_study --table t.csv | cut -f 1-3",
         "2\tsimulation.starting_date\terror\n3\tsalt.1\terror\n", 0,
         "Nothing was written: the table has 2 faults."},
        {"printf 'name,salt.1\na,0.5\nb,\n' >t.csv; tvs_project generate Irrigation_study --table t.csv | "
         "head -2; tvs_project get Irrigation_study salt.1 --all --generated",
         "generated\t2\nreplaced\t0\na\tsalt.1\t0.5\tdS/m\nb\tsalt.1\t0\tdS/m\n"},
        // Doubts are told whatever is done; what could not be written was not replaced.
        {"printf 'name,salt.1\na,45\nb,\n' >t.csv; tvs_project generate Irrigation_study --table t.csv | "
         "head -2",
         "generated\t2\nreplaced\t2\n", 0, "Row 2, column salt.1: "},
        {"printf 'name,salt.1\na,much\n' >f.csv; ln -sf /proc/version "
         "Irrigation_study/Generated_scenarios/b.tvn; for call in 't.csv --count' 't.csv --no-backup' f.csv; "
         "do tvs_project generate Irrigation_study --table $call --json 2>/dev/null | python3 -c 'import "
         "json, sys; print(*(told if type(told) is int "
         "else len(told) for key, told in json.load(sys.stdin).items() if key != \"folder\"))'; done; rm "
         "Irrigation_study/Generated_scenarios/b.tvn",
         "0 2 2 0 0 1 0\n1 1 2 0 0 1 1\n0 0 1 1 1 0 0\n"},
        {"tvs_project delete Irrigation_study --all --generated --permanently >/dev/null"},
        // Who presses Ctrl-C is told how far it came.
        {"(echo name,salt.1; seq -f 'a%g,1' 20000) >t.csv; tvs_project generate Irrigation_study --table "
         "t.csv >/dev/null & until [ -e Irrigation_study/Generated_scenarios/a1.tvn ]; do sleep 0.01; done; "
         "kill -INT $!; wait $!",
         "", 1, " of 20000 done."},
        {"tvs_project delete Irrigation_study --all --generated --permanently >/dev/null"},
        {"mkdir -p Irrigation_study/Generated_scenarios/0000{1..8}/Output"},
        {"bash '" EXAMPLES "/family_overnight.sh' Irrigation_study 2 | cut -f 1,2 | sed -n '1p;3p;8p'; "
         "tvs_project status Irrigation_study | sed -n 2p",
         "00001\tdone\n00003\tdone\n00008\tdone\nruns\t1 of 1 done\n", 0, "7 of 8 done, 1 failed"},
    });
}
