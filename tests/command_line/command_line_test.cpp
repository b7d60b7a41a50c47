// The commands as their users meet them: the built program, on the example suite.
#include "command_line/example_journey.h"

#include <unistd.h>

namespace {

using Command_line_test = Example_journey;

TEST_F(Command_line_test, wrong_calls_and_absent_files_say_what_to_do_and_change_nothing) {
    expect_unchanged({
        {"tvs_project", "", 2, "A subcommand is required"},
        {"tvs_project --nope", "", 2, "There is no option '--nope'"},
        {"tvs_project lits Irrigation_study", "", 2, "There is no command 'lits'."},
        {"tvs_project check Irrigation_study --suite /nowhere", "", 3, "There is no folder '/nowhere'"},
        {"tvs_project get Irrigation_study.tvp 'nothing.*'", "", 1, "There is no setting 'nothing.*'"},
        {"tvs_project list", "", 2, "Try 'tvs_project list --help'."},
        {"tvs_project list no_such_study", "", 3, "There is no project 'no_such_study'."},
        // What is no project is not made one by a save.
        {"tvs_project new Irrigation_study/notes.txt a --activate", "", 3, "is no project"},
        {"tvs_project new Irrigation_study/Scenarios/base.tvn a --activate", "", 3, "is no project"},
        {"tvs_project delete Irrigation_study --where 'scenario.description=W*'", "", 2, "or --all"},
        {"tvs_project delete Irrigation_study --all --where no.key=1", "", 1,
         "No scenario has a setting 'no.key'"},
        {"tvs_project delete Irrigation_study --all --where salt.1=99", "", 1, "Nothing was done."},
        {"tvs_project list Irrigation_study --where salinity", "", 2, "is no condition such as"},
        {"tvs_project list Irrigation_study 'nothing*'", "", 1,
         "No scenario matches 'nothing*'. Nothing was done."},
        {"tvs_project reset Irrigation_study --from base --boxes CO2", "", 2,
         "their names, wildcards, or --all"},
        {"tvs_project reset Irrigation_study --from base --boxes CO2 --all plateau", "", 2, "not both"},
        {"tvs_project reset Irrigation_study --from base --boxes weather --all", "", 2,
         "--boxes: weather not in"},
        {"tvs_project reset Irrigation_study --from 'p*' --boxes CO2 base 'none*'", "", 1,
         "No scenario matches"},
        {"tvs_project set Irrigation_study.tvp analysis=true", "", 2, "is no assignment such as"},
        {"tvs_project set Irrigation_study.tvp project.description=$'\\u0416'", "", 2, "records cannot hold"},
        {"tvs_project get none.tvn", "", 3, "There is no record 'none.tvn'."},
        {"tvs_project get Irrigation_study.tvp project.no", "", 1, "There is no setting 'project.no'"},
        {"tvs_project diff Irrigation_study.tvp none.tvp", "", 3, "none.tvp"},
        {"tvs_project convert Irrigation_study/notes.txt",
         "Irrigation_study/notes.txt\tfailed\tRecords of this kind of file are not known.\n", 3,
         "1 of 1 failed"},
        {"tvs_project check Irrigation_study >/dev/full"},
        {"tvs_project list Irrigation_study >/dev/full", "", 3, "No space left on device"},
        // A reader that goes early ends the command quietly.
        {"set -o pipefail; tvs_project get Irrigation_study --all | head -1 >/dev/null"},
        {"set -o pipefail; tvs_project get Irrigation_study --all --json | true"},
    });
}

TEST_F(Command_line_test, what_reports_tells_it_to_people_and_to_programs_and_changes_nothing) {
    const std::string base = "Irrigation_study/Scenarios/base.tvn";
    expect_unchanged({
        {"tvs_project info Irrigation_study | sed -n '3p;5,6p;8,9p'",
         "type\tTilverra\nmodel\tC:\\Program Files\\TVS_suite\\Tilverra\\tilverra_5.exe\n"
         "template\tScenarios\\base.tvn\nscenarios\t5\ngenerated\t0\n"},
        {"tvs_project info 'C:\\Simulation\\Projects\\irrigation_STUDY.tvp' --json | grep -c 'Ca\u00f1ada "
         "del R'",
         "1\n"},
        {"tvs_project list Irrigation_study.tvp 'P*' base | cut -f 1-3",
         "base\tnever run\tWinter wheat, deficit irrigation\nplateau\tnever run\tWheat, barley and pea, "
         "deficit irrigation, plateau\n"},
        {"tvs_project list Irrigation_study Irrigation_study/Scenarios/rainfed.tvn --json | cut -d , -f 1,2",
         "[\n  {\"name\":\"rainfed\",\"state\":\"never run\"\n]\n"},
        {"tvs_project list Irrigation_study --where 'event:1.enabled=false' | cut -f 1", "rainfed\n"},
        {"tvs_project list Irrigation_study --generated --json", "[]\n"},
        {"tvs_project check Irrigation_study"},
        {"tvs_project check Irrigation_study --json", "[]\n"},
        {"tvs_project generate Irrigation_study --count", "count\t8\nreplaced\t0\n"},
        {"tvs_project get " + base + " simulation.ending_date", "2001-12-31\n"},
        {"tvs_project get Irrigation_study 'leach*' --scenarios 'r*'",
         "rainfed\tleaching_observation.mode\tbottom\t\nrainfed\tleaching_observation.depth\t0\tm\n"},
        {"tvs_project get " + base + " leaching_observation.mode --json",
         "[\n  {\"scenario\":\"base.tvn\",\"section\":\"leaching_observation\",\"key\":\"mode\",\"setting\":"
         "\"leaching_observation.mode\",\"value\":\"bottom\",\"unit\":\"\",\"caption\":\"\",\"kind\":"
         "\"choice\","
         "\"known\":true,\"in_file\":true,\"range\":null,\"choices\":[\"bottom\",\"specified\"],\"reason\":"
         "null}\n]\n"},
        {"cd Irrigation_study/Scenarios; tvs_project diff base.tvn rainfed.tvn",
         "scenario.description\tWinter wheat, deficit irrigation\tWinter wheat, rainfed\n"
         "event:1.enabled\ttrue\tfalse\n",
         1},
        {"cd Irrigation_study/Scenarios; tvs_project diff base.tvn base.tvn"},
        {"cd Irrigation_study/Scenarios; tvs_project diff rainfed.tvn base.tvn base.tvn --json | head -2",
         "[\n  {\"setting\":\"scenario.description\",\"first\":\"Winter wheat, rainfed\",\"second\":\"Winter "
         "wheat, deficit irrigation\",\"common\":\"Winter wheat, deficit "
         "irrigation\",\"changed_by\":\"first\",\"known\":true},\n"},
        {"tvs_project --version | cut -d ' ' -f 1", "tvs_project\n"},
        // On a terminal: a table that fits, with a header; no colours where none are wanted.
        {"COLUMNS=60 script -qec 'stty cols 60; tvs_project list Irrigation_study base plateau' /dev/null | "
         "tr -d '\\r' | cut -c 1-38",
         "NAME     STATE      DESCRIPTION   CHAN\nbase     never run  Winter whea\u2026  20\nplateau  never "
         "run  Wheat, barl\u2026  20\n"},
        {"TERM=xterm script -qec 'tvs_project set Irrigation_study CO2.enable=5 --all --dry-run' /dev/null | "
         "grep -c \"$(printf '\\033.31mrefused')\"",
         "5\n"},
        {"NO_COLOR=1 script -qec 'tvs_project set Irrigation_study CO2.enable=5 --all --dry-run' /dev/null | "
         "grep -c \"$(printf '\\033.3')\"",
         "0\n", 1},
    });
}

TEST_F(Command_line_test, what_changes_scenarios_changes_what_was_asked_and_nothing_else) {
    const std::string base = project_file("Irrigation_study/Scenarios/base.tvn");
    const std::string plateau = project_file("Irrigation_study/Scenarios/plateau.tvn");
    expect({
        {"tvs_project set Irrigation_study submodels.salinity=on simulation.ending_date=1996-12-31 "
         "--scenarios base",
         "base\tsubmodels.salinity\tfalse\ton\tdone\t\n"
         "base\tsimulation.ending_date\t2001-12-31\t1996-12-31\tdone\t\n"},
        // One refusal, and nothing of that file is written.
        {"tvs_project set Irrigation_study salt.1=1 salt.2=much --scenarios 'pl*'",
         "plateau\tsalt.1\t0\t1\tleft\t\n"
         "plateau\tsalt.2\t0\tmuch\trefused\tThe value must be a number such as 12 or 0.25.\n",
         1, "1 of 1 failed: plateau"},
        // What cannot be written does not end the work on the others.
        {"chmod a-w Irrigation_study/Scenarios/base.tvn; tvs_project set Irrigation_study CO2.enable=1 --all "
         "| grep -e base -e rainfed",
         "base\tCO2.enable\tfalse\t1\tfailed\tThe file is read-only.\n"
         "rainfed\tCO2.enable\tfalse\t1\tdone\t\n",
         0, "1 of 5 failed: base"},
        {"tvs_project reset Irrigation_study --from rainfed --boxes CO2 base 'cl*' rainfed",
         "rainfed\tskipped\tIt is the scenario that is copied from.\nbase\tfailed\tThe file is "
         "read-only.\nclay soil\tdone\t\n",
         3, "1 of 3 failed: base"},
        {"chmod u+w Irrigation_study/Scenarios/base.tvn; tvs_project generate Irrigation_study | tail -4",
         "Winter wheat, deficit irrigation silt loam.sil valley.XEB wheat-fallow.rot "
         "wet.TVS_init\ngenerated\t8\nreplaced\t0\n"
         "folder\tC:\\Simulation\\Projects\\Irrigation_study\\Generated_scenarios\n"},
        {"tvs_project list Irrigation_study --generated 0000? | wc -l", "8\n"},
        {"tvs_project generate Irrigation_study --json | head -3",
         "{\n  \"generated\": 8,\n  \"replaced\": 8,\n"},
        {"tvs_project compare Irrigation_study base rainfed", "", 1, "has no output. Run it first."},
        {"cd Irrigation_study; for scenario in base rainfed; do tilverra_5.exe ../Irrigation_study.tvp "
         "'C:\\Simulation\\Projects\\Irrigation_study\\Scenarios\\'$scenario.tvn; done >/dev/null"},
        {"tvs_project compare Irrigation_study base rainfed plateau base",
         "base\tskipped\tIt is the scenario itself.\nplateau\tfailed\tIt has no output. Run it first.\n"
         "rainfed\tdone\tbase vs rainfed\n",
         1, "1 of 3 failed: plateau"},
        {"test -f 'Irrigation_study/scenario_comparison/base vs rainfed/Output/season.xeb'"},
        // No pair is done once a pair has failed.
        {"rm '../../Program Files/TVS_suite/XEB/compare.exe'; cp -R "
         "Irrigation_study/Scenarios/{rainfed,plateau}; tvs_project compare Irrigation_study base rainfed "
         "plateau | cut -f 1,2",
         "plateau\tfailed\nrainfed\tfailed\n", 0, "2 of 2 failed: plateau, rainfed"},
        {"cd '../../Program Files/TVS_suite/XEB'; printf '#!/bin/sh\\nexit 3\\n' >compare.exe; chmod +x "
         "compare.exe; cd - >pwd; tvs_project compare Irrigation_study base rainfed",
         "rainfed\tfailed\tThe comparing program ended with exit code 3.\n", 1, "1 of 1 failed"},
        {"cd Irrigation_study/Import; tvs_project convert *.sim; tvs_project convert *.sim; tvs_project get "
         "*.sim parameter_filenames.soil; ls",
         "spring barley 1985.sim\tdone\tThe old file is kept as "
         "C:\\Simulation\\Projects\\Irrigation_study\\Import\\spring barley 1985.sim.bak.\n"
         "spring barley 1985.sim\tunchanged\tIt is in the present spelling already.\n"
         "palouse.sil\nspring barley 1985.sim\nspring barley 1985.sim.bak\n"},
    });
    std::string expected = base;
    expected.replace(expected.find("salinity=false"), 14, "salinity=true");
    const std::string ending = "ending_date=2001365 (2001/12/31)";
    expected.replace(expected.find(ending), ending.size(), "ending_date=1996366 (1996/12/31)");
    EXPECT_EQ(project_file("Irrigation_study/Scenarios/base.tvn"), expected);
    std::string with_CO2 = plateau;
    with_CO2.replace(with_CO2.find("enable=false", with_CO2.find("[CO2]")), 12, "enable=true");
    EXPECT_EQ(project_file("Irrigation_study/Scenarios/plateau.tvn"), with_CO2);
}

TEST_F(Command_line_test, what_changes_or_judges_scenarios_reports_it_to_programs) {
    expect({
        {"tvs_project new Irrigation_study a --json | cut -d , -f 1,2",
         "[\n  {\"scenario\":\"a\",\"outcome\":\"done\"\n]\n"},
        {"tvs_project copy Irrigation_study base b --json | cut -d , -f 1,2",
         "[\n  {\"scenario\":\"b\",\"outcome\":\"done\"\n]\n"},
        {"tvs_project import Irrigation_study Irrigation_study/Import/*.sim --json | cut -d , -f 1,2",
         "[\n  {\"scenario\":\"spring barley 1985\",\"outcome\":\"done\"\n]\n"},
        {"tvs_project delete Irrigation_study a --json | cut -d , -f 1,2",
         "[\n  {\"scenario\":\"a\",\"outcome\":\"done\"\n]\n"},
        {"tvs_project reset Irrigation_study --from base --boxes CO2 b --json | cut -d , -f 1,2",
         "[\n  {\"scenario\":\"b\",\"outcome\":\"done\"\n]\n"},
        {"tvs_project set Irrigation_study CO2.enable=1 --scenarios b --json | cut -d , -f 1,2",
         "[\n  {\"scenario\":\"b\",\"setting\":\"CO2.enable\"\n]\n"},
        {"echo '[weather_tool]' >>Irrigation_study/Scenarios/b.tvn; echo seed=1 "
         ">>Irrigation_study/Scenarios/b.tvn; tvs_project check Irrigation_study b --json | cut -d , -f 1,2",
         "[\n  {\"scenario\":\"b\",\"weight\":\"warning\"\n]\n"},
        // What cannot be read is a row too.
        {"mkfifo Irrigation_study/Scenarios/pipe.tvn; tvs_project set Irrigation_study CO2.enable=1 "
         "--scenarios pipe --json | grep -c 'failed.*cannot be read'; tvs_project get Irrigation_study "
         "CO2.enable none.x --scenarios pipe --scenarios b --json | python3 -c 'import json, sys; "
         "print([(row[\"scenario\"], "
         "row[\"setting\"], row[\"reason\"] and row[\"reason\"][:8]) for row in json.load(sys.stdin)])'",
         "1\n[('b', 'none.x', 'There is'), ('b', 'CO2.enable', None), ('pipe', None, 'The file')]\n", 0,
         "1 of 1 failed: pipe"},
        {"tvs_project list Irrigation_study pipe | cut -f 1,2", "pipe\tunreadable\n", 0,
         "The scenario pipe.tvn cannot be read."},
        {"tvs_project copy Irrigation_study pipe c; ls Irrigation_study/Scenarios/c*; rm "
         "Irrigation_study/Scenarios/pipe.tvn",
         "c\tfailed\tThe scenario to copy is no regular file.\nIrrigation_study/Scenarios/clay soil.tvn\n", 0,
         "1 of 1 failed: c"},
    });
}

// By a user who may read everything and write nothing.
TEST_F(Command_line_test, what_cannot_be_written_is_named_with_the_reason_and_stays_as_it_is) {
    const std::string writes[][2] = {
        {"new Irrigation_study a", "Scenarios cannot be written: You have no permission"},
        {"copy Irrigation_study base b", "Scenarios cannot be written: You have no permission"},
        {"delete Irrigation_study base", "1 of 1 failed: base"},
        {"delete Irrigation_study base --permanently", "cannot be made or written: You have no permission"},
        {"import Irrigation_study Irrigation_study/Import/*.sim",
         "cannot be made or written: You have no permission"},
        {"set Irrigation_study CO2.enable=1 --all", "cannot be made or written: You have no permission"},
        {"set Irrigation_study.tvp project.description=x", "1 of 1 failed"},
        {"reset Irrigation_study --from rainfed --boxes CO2 --all",
         "cannot be made or written: You have no permission"},
        {"generate Irrigation_study", "\\Generated_scenarios"},
        {"compare Irrigation_study base rainfed", "\\scenario_comparison"},
        {"convert Irrigation_study/Import/*.sim", "1 of 1 failed"},
        {"run Irrigation_study base", "\\Runs cannot be written: You have no permission"},
        {"continue Irrigation_study", "cannot be written: You have no permission"},
    };
    ASSERT_EQ(run("tvs_project run Irrigation_study base rainfed && tvs_project run Irrigation_study base "
                  "--engine list && chmod a+rx ../../../.. && chmod -R a=rX ../../..")
                  .code,
              0);
    const std::string as = geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    std::vector<Call> calls;
    for (const auto& [command, told] : writes)
        calls.push_back({as + "tvs_project " + command + " >/dev/null", "", 3, told.c_str()});
    expect_unchanged(calls);
    expect({{"touch Irrigation_study/Scenarios/base.tvn; chmod 0 Irrigation_study/Scenarios/base/Output; " +
                 as + "tvs_project run Irrigation_study base --stale --dry-run",
             "", 3, "Not run: base.tvn. Whether it is out of date cannot be told: The folder "},
            {"chmod 0 Irrigation_study/Scenarios; " + as +
                 "tvs_project info Irrigation_study | grep -c '(cannot "
                 "be reached)'; chmod -R u+rwX ../../..",
             "2\n"}});
}

TEST_F(Command_line_test, what_an_interrupted_save_has_cut_serves_nothing_until_that_is_settled) {
    const auto cut = [&](const std::string& file) {
        const std::string save = "$XDG_DATA_HOME/tilverra/rescue/" + file.substr(file.rfind('/') + 1);
        run("mkdir -p $XDG_DATA_HOME/tilverra/rescue; cp " + file + " " + save +
            ".copy; printf '9 0\n%s' $PWD/" + file + " >" + save + ".save; truncate -s 400 " + file);
    };
    cut("Irrigation_study/Scenarios/base.tvn");
    run("cp Irrigation_study/Scenarios/rainfed.tvn base.sim");
    std::vector<Call> calls;
    for (const char* command :
         {"get Irrigation_study/Scenarios/base.tvn", "check Irrigation_study base",
          "list Irrigation_study base", "reset Irrigation_study --from base --boxes soil_N rainfed",
          "generate Irrigation_study", "reset Irrigation_study --from rainfed --boxes soil_N base",
          "copy Irrigation_study base copy", "convert Irrigation_study/Scenarios/base.tvn",
          "import Irrigation_study --replace base.sim", "rename Irrigation_study base other",
          "run Irrigation_study base"})
        calls.push_back({std::string("tvs_project ") + command + " 2>&1 | grep -qi interrupted"});
    expect_unchanged(calls);
    calls.clear();
    cut("Irrigation_study.tvp");
    for (const char* command : {"rename Irrigation_study rainfed dry", "info Irrigation_study"})
        calls.push_back({std::string("tvs_project ") + command + " >/dev/null", "", 3,
                         "Irrigation_study.tvp: The last save of this file was interrupted"});
    expect_unchanged(calls);
}

// While many records that name the scenario are written.
TEST_F(Command_line_test, what_others_change_in_the_project_during_a_renaming_stays) {
    const std::string wait = "& while [ -e Irrigation_study/Scenarios/base.tvn ]; do :; done; sed -i '";
    const std::string then =
        "' Irrigation_study.tvp; wait $!; echo $?; grep -c Scenarios.dry Irrigation_study.tvp";
    expect({{"for i in $(seq 60); do sed 's/=Database/=Scenarios\\base\\Database/' "
             "Irrigation_study/Scenarios/plateau.tvn >Irrigation_study/Scenarios/$i.tvn; done; tvs_project "
             "rename "
             "Irrigation_study base dry >/dev/null " +
                 wait + "/^description=/cdescription=mine" + then +
                 "; grep ^description=mine Irrigation_study.tvp",
             "0\n2\ndescription=mine\n"}});
}

TEST_F(Command_line_test, an_old_record_keeps_all_that_it_told_in_the_present_spelling) {
    folder.write("example/drive_c/Simulation/Projects/old.tvn",
                 "[simulation]\nsoil_filename=a.sil\nours=1\n[scenario]\nevent_count=2\n[event_2]\nID=b\n"
                 "sync=after_flowering\n[event_1]\nID=a\n[weather_tool]\nseed=1\n");
    expect({
        {"tvs_project check Irrigation_study base; tvs_project convert old.tvn",
         "old.tvn\tdone\tThe old file is kept as C:\\Simulation\\Projects\\old.tvn.bak.\n"},
        {"for key in scenario.event:count event:1.ID event:2.ID event:2.sync parameter_filenames.soil "
         "simulation.ours weather_tool.seed version.major; do tvs_project get old.tvn $key; done; grep -c "
         "soil_filename old.tvn",
         "2\na\nb\nafter_flowering\na.sil\n1\n1\n4\n0\n", 1},
    });
}

TEST_F(Command_line_test, completions_and_manual_come_from_what_the_commands_say) {
    expect({
        {"eval \"$(tvs_project completion bash)\"; COMP_WORDS=(tvs_project reset study --boxes s); "
         "COMP_CWORD=4; _tvs_project; echo ${COMPREPLY[*]}",
         "submodels soil_profile soil_N\n"},
        {"eval \"$(tvs_project completion bash)\"; COMP_WORDS=(tvs_project ge); COMP_CWORD=1; _tvs_project; "
         "echo ${COMPREPLY[*]}; COMP_WORDS=(tvs_project reset study --boxes CO2,s); COMP_CWORD=4; "
         "_tvs_project; echo ${COMPREPLY[*]}; COMP_WORDS=(tvs_project run Irrigation_study base 'clay\\ s'); "
         "COMPREPLY=(); _tvs_project; echo \"${COMPREPLY[*]}\"",
         "generate get\nCO2,submodels CO2,soil_profile CO2,soil_N\nclay soil\n"},
        // As they come behind what is typed in a shell: a command, a value, an option.
        {"mkdir fp; tvs_project completion zsh >fp/_tvs_project; timeout 60 zsh -fc 'zmodload zsh/zpty; zpty "
         "z "
         "zsh -fi; zpty -w z \"PS1=; fpath=($PWD/fp \\$fpath); autoload -Uz compinit; compinit -D -u\"; for "
         "typed in gener:ate \"reset study --boxes CO2,soil_p:rofile\" \"list --gene:rated\" \"list "
         "Irrigation_study cl:ay\";  do zpty -w -n z "
         "$'\\''\\025'\\''\"tvs_project ${typed%:*}\"$'\\''\\t'\\''; zpty -r z out \"*${typed#*:}*\" && echo "
         "${typed#*:}; done'",
         "ate\nrofile\nrated\nay\n"},
        {"tvs_project manual | grep -c '^## '", "22\n"},
        {"tvs_project manual | grep -e '^## diff' -e '^    tvs_project diff' -e '^- `--boxes'",
         "- `--boxes {submodels,CO2,output,soil_profile,residue,organic_matter,manure,soil_N}`: What to "
         "copy, with commas between\n## diff A B \\[C]\n    tvs_project diff Scenarios/base.tvn "
         "Scenarios/rainfed.tvn\n"
         "    tvs_project diff 'plot 1.tvn' 'plot 2.tvn' template.tvn\n"},
    });
}

} // namespace
