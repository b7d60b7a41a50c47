// Reading and writing record files: into a record that knows none of their keys, and into one that declares
// them all, beside what libraries for such files need for a bare load and save.
#include "foundation/ustring.h"
#include "platform/file_writer.h"
#include "records/data_record.h"
#include "records/vv_file.h"
#include "support/inputs.h"

#include <benchmark/benchmark.h>

#include <deque>
#include <string>

#if HAS_SIMPLEINI
#define SI_NO_CONVERSION
#include <SimpleIni.h>
#endif
#if HAS_INIH
#include <INIReader.h>
#endif

namespace {

class Undeclared_record : public TESK::Data_record {
public:
    Undeclared_record() : Data_record("primary") {}
};

// Declares what make_inputs.py writes into scenario_size.tvn: 30 sections of 17 keys.
class Scenario_sized_record : public TESK::Data_record {
public:
    static constexpr int section_count = 30;
    static constexpr int key_count = 17;

    Scenario_sized_record() : Data_record("section_0") {
        for (int i = 0; i < key_count; ++i)
            keys_.push_back("key_" + std::to_string(i));
        for (int i = 0; i < section_count; ++i)
            names_.push_back("section_" + std::to_string(i));
    }
    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        for (int section = 0; section < section_count; ++section) {
            set_current_section(names_[section]);
            for (int key = 0; key < key_count; ++key) {
                const int field = section * key_count + key;
                const char* name = keys_[key].c_str();
                if (key % 3 != 0)
                    expect_float32(name, numbers_[field], "Average annual temperature");
                else if (key % 2 != 0)
                    expect_bool(name, flags_[field]);
                else
                    expect_string(name, texts_[field], 255);
            }
        }
    }

private:
    std::deque<std::string> names_;
    std::deque<std::string> keys_;
    float numbers_[section_count * key_count] = {};
    bool flags_[section_count * key_count] = {};
    TESK::Ustring texts_[section_count * key_count];
};

template <class Record>
void read_record(benchmark::State& state, const std::string& file) {
    const std::string name = input_name(file);
    Record record;
    for (auto _ : state)
        benchmark::DoNotOptimize(TESK::VV_file(name.c_str()).get(record));
}

template <class Record>
void write_record(benchmark::State& state, const std::string& file) {
    const std::string name = input_name(file);
    const std::string target = input_name("written.tmp");
    Record record;
    for (auto _ : state) {
        state.PauseTiming();
        TESK::VV_file(name.c_str(), true).get(record);
        state.ResumeTiming();
        TESK::VV_file written(target.c_str());
        written.set_durability(platform::Durability::quick);
        written.set(record);
    }
}

void declared_write(benchmark::State& state) {
    const std::string target = input_name("written.tmp");
    Scenario_sized_record record;
    TESK::VV_file(input_name("scenario_size.tvn").c_str()).get(record);
    for (auto _ : state) {
        TESK::VV_file written(target.c_str());
        written.set_durability(platform::Durability::quick);
        written.set(record);
    }
}

#if HAS_SIMPLEINI
void simpleini_load(benchmark::State& state, const std::string& file) {
    for (auto _ : state) {
        CSimpleIniA ini;
        benchmark::DoNotOptimize(ini.LoadFile(input_path(file).c_str()));
    }
}

void simpleini_save(benchmark::State& state, const std::string& file) {
    CSimpleIniA ini;
    ini.LoadFile(input_path(file).c_str());
    for (auto _ : state)
        ini.SaveFile(input_path("written.tmp").c_str());
}
#endif

#if HAS_INIH
void inih_load(benchmark::State& state, const std::string& file) {
    for (auto _ : state) {
        INIReader reader(input_path(file));
        benchmark::DoNotOptimize(reader.ParseError());
    }
}
#endif

void add(const char* what, void (*run)(benchmark::State&, const std::string&), const std::string& file) {
    benchmark::RegisterBenchmark((std::string(what) + "/" + file).c_str(), run, file)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (const char* file : {"scenario_size.tvn", "wide_500.tvn", "wide_1k.tvn", "wide_10k.tvn",
                             "wide_100k.tvn", "many_sections_10k.tvn"}) {
        add("read_undeclared", read_record<Undeclared_record>, file);
#if HAS_SIMPLEINI
        add("simpleini_load", simpleini_load, file);
#endif
#if HAS_INIH
        add("inih_load", inih_load, file);
#endif
        add("write_undeclared", write_record<Undeclared_record>, file);
#if HAS_SIMPLEINI
        add("simpleini_save", simpleini_save, file);
#endif
    }
    add("read_declared", read_record<Scenario_sized_record>, "scenario_size.tvn");
    benchmark::RegisterBenchmark("write_declared", declared_write)->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    std::remove(input_path("written.tmp").c_str());
}
