#pragma once
// Typed access to one section of one settings file through the profile-string functions,
// with an optional in-memory record of the values set ("key=value" strings) that reading
// consults before the file's value. The virtual operations keep their table order.
//
// Every typed get reads the key as a string and converts it in its text form; when no
// number is found the caller's variable keeps its value, so callers set their default
// first. Every typed set formats the value in its text form and sets it as a string.
#include <string>

#include "boundary/ResBuf.h"

namespace ardo {

class cSetup {
public:
    // The buffer the file's values are read into, in characters.
    static constexpr size_t kValueBuffer = 512;

    cSetup() = default;
    cSetup(const cSetup&) = delete;
    cSetup& operator=(const cSetup&) = delete;

    // The second argument is accepted for the callers' sake and not kept.
    virtual void bind(const std::string& filePath, const std::string& notKept, const std::string& name,
                      const std::string& section, bool recordValues, bool useFile);
    virtual ~cSetup();
    virtual void clearRecord();
    virtual void clearRecordIfRecording();
    virtual void getString(const std::string& key, const std::string& defaultValue, std::string& result) const;
    virtual void setString(const std::string& key, const std::string& value, bool writeToFile);
    virtual void getInt(const std::string& key, int& value) const;                    // "%d"
    virtual void setInt(const std::string& key, int value, bool writeToFile);
    virtual void getBool(const std::string& key, bool& value) const;                  // "%d", 0 or 1
    virtual void setBool(const std::string& key, bool value, bool writeToFile);
    virtual void getInteger(const std::string& key, int& value) const;                // "%d"
    virtual void setInteger(const std::string& key, int value, bool writeToFile);
    virtual void getUnsigned(const std::string& key, unsigned& value) const;          // "%u"
    virtual void setUnsigned(const std::string& key, unsigned value, bool writeToFile);
    virtual void getReal(const std::string& key, double& value) const;                // "%.5lf"
    virtual void setReal(const std::string& key, double value, bool writeToFile);
    virtual void getLong(const std::string& key, long& value) const;                  // "%ld"
    virtual void setLong(const std::string& key, long value, bool writeToFile);
    virtual void getUnsignedLong(const std::string& key, unsigned long& value) const; // "%lu"
    virtual void setUnsignedLong(const std::string& key, unsigned long value, bool writeToFile);
    // True when at least one character of the text was taken as part of the number; the
    // result is left alone otherwise.
    virtual bool parseReal(double& result, const std::string& text) const;

    const std::string& filePath() const { return filePath_; }
    const std::string& name() const { return name_; }
    const std::string& section() const { return section_; }
    bool recordValues() const { return recordValues_; }
    bool useFile() const { return useFile_; }
    // The recorded strings, first to last.
    const ResBufChain& recordList() const { return recordList_; }

private:
    std::string filePath_;
    std::string name_;
    std::string section_;
    bool recordValues_ = false;
    bool useFile_ = false;
    ResBufChain recordList_;
};

}  // namespace ardo
