// What a store of records is: something that fills a record's fields, or keeps them.
#pragma once

#include <cstdint>
#include <string>

namespace TESK {

class Data_record;

// Hears of every field of a record after the record has been set.
class Data_change_listener {
public:
    virtual ~Data_change_listener() = default;
    virtual void record_begins(std::int32_t position) = 0;
    virtual void field_set(const std::string& key, const std::string& value, const std::string& section) = 0;
    virtual void record_ends() = 0;
};

class Data_source {
public:
    Data_source() = default;
    Data_source(const Data_source&) = delete;
    Data_source& operator=(const Data_source&) = delete;

    // Marks the source modified. True.
    virtual bool create();

    virtual ~Data_source() = default;

    // Fills the record's fields from the store; get_next from the store's next record. The base only makes
    // sure that the record's structure is declared, and answers false.
    virtual bool get(Data_record& record);
    virtual bool get_next(Data_record& record);

    // Stores the record: prewrite, the declaration of its structure, write_record, postwrite. Answers what
    // write_record answers.
    virtual bool set(Data_record& record);

    // The name of the store, in place of what the buffer held; where it has none, the buffer stays as it is.
    virtual std::string& label(std::string& buffer) const = 0;

    // Marks the source modified. 0.
    virtual int set_modified();
    virtual bool is_modified() const { return modified_; }

    // Writes a record whose structure is declared.
    virtual bool write_record(Data_record& record) = 0;

    // Not owned; null for nobody.
    void set_change_listener(Data_change_listener* listener) { change_listener_ = listener; }

private:
    void tell_listener(const Data_record& record) const;

    Data_change_listener* change_listener_ = nullptr;
    bool modified_ = false;
};

} // namespace TESK
