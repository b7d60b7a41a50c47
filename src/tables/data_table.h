// A store of many records of one structure, of which one is current.
#pragma once

#include "records/data_source.h"

#include <cstdint>

namespace TESK {

class Data_table : public Data_source {
public:
    // Each moves to another record; false, and no record current, when there is none there.
    virtual bool goto_first() = 0;
    virtual bool goto_last() = 0;
    virtual bool goto_next(std::int32_t count) = 0;
    virtual bool goto_previous(std::int32_t count) = 0;
    virtual bool goto_record(std::uint32_t number) = 0;
};

} // namespace TESK
