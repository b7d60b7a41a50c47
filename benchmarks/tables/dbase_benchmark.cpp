// Reading dBase tables: every field of every row as text, every row into a record, and a header alone, beside
// the library that most map software reads them with.
#include "support/inputs.h"
#include "tables/dbase_data_source.h"

#include <benchmark/benchmark.h>

#if HAS_SHAPELIB
#include <shapefil.h>
#endif

using TESK::dBase_data_source;

namespace {

void read_every_field(benchmark::State& state) {
    const std::string name = input_name("coverage_100k.dbf");
    for (auto _ : state) {
        TESK::Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        std::size_t sum = 0;
        for (bool there = source.goto_first(); there; there = source.goto_next(1))
            for (const auto& field : TESK::Items_of<dBase_data_source::Field_item>(source.fields))
                sum += static_cast<unsigned char>(source.get_field_text(field).front());
        benchmark::DoNotOptimize(sum);
    }
}

void read_every_row_into_a_record(benchmark::State& state) {
    const std::string name = input_name("coverage_100k.dbf");
    for (auto _ : state) {
        TESK::Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        const auto record = source.make_record();
        for (bool there = source.goto_first(); there; there = source.goto_next(1))
            source.get(*record);
    }
}

void open_header(benchmark::State& state) {
    const std::string name = input_name("coverage_100k.dbf");
    for (auto _ : state) {
        TESK::Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        benchmark::DoNotOptimize(source.read_structure());
    }
}

BENCHMARK(read_every_field)->Unit(benchmark::kMillisecond);
BENCHMARK(read_every_row_into_a_record)->Unit(benchmark::kMillisecond);
BENCHMARK(open_header)->Unit(benchmark::kMicrosecond);

#if HAS_SHAPELIB
void shapelib_read_every_field(benchmark::State& state) {
    const std::string path = input_path("coverage_100k.dbf");
    for (auto _ : state) {
        DBFHandle table = DBFOpen(path.c_str(), "rb");
        std::size_t sum = 0;
        for (int row = 0; row < DBFGetRecordCount(table); ++row)
            for (int field = 0; field < DBFGetFieldCount(table); ++field)
                sum += static_cast<unsigned char>(DBFReadStringAttribute(table, row, field)[0]);
        benchmark::DoNotOptimize(sum);
        DBFClose(table);
    }
}

void shapelib_open_header(benchmark::State& state) {
    const std::string path = input_path("coverage_100k.dbf");
    for (auto _ : state)
        DBFClose(DBFOpen(path.c_str(), "rb"));
}

BENCHMARK(shapelib_read_every_field)->Unit(benchmark::kMillisecond);
BENCHMARK(shapelib_open_header)->Unit(benchmark::kMicrosecond);
#endif

} // namespace

BENCHMARK_MAIN();
