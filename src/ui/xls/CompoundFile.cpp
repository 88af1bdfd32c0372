#include "ui/xls/CompoundFile.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <memory>

namespace ssq::xls {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

template <typename Object>
using ObjectPtr = std::unique_ptr<Object, Unref>;

void InitialiseLibraryOnce() {
    static const bool initialised = [] {
        gsf_init();
        return true;
    }();
    static_cast<void>(initialised);
}

bool WriteStream(GsfOutput* sink, std::string_view bytes) {
    const ObjectPtr<GsfOutfile> container(gsf_outfile_msole_new(sink));
    if (!container) return false;
    const ObjectPtr<GsfOutput> stream(gsf_outfile_new_child(container.get(), "Workbook", FALSE));
    if (!stream) return false;
    const bool written = gsf_output_write(stream.get(), bytes.size(),
                                          reinterpret_cast<const guint8*>(bytes.data())) != FALSE;
    // Closing the container completes its directory and closes the sink with it.
    const bool streamClosed = gsf_output_close(stream.get()) != FALSE;
    const bool containerClosed = gsf_output_close(GSF_OUTPUT(container.get())) != FALSE;
    return written && streamClosed && containerClosed;
}

}  // namespace

std::optional<std::string> CompoundFile(std::string_view workbook) {
    InitialiseLibraryOnce();
    const ObjectPtr<GsfOutput> sink(gsf_output_memory_new());
    if (!sink || !WriteStream(sink.get(), workbook)) return std::nullopt;
    const auto* bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(sink.get()));
    return std::string(reinterpret_cast<const char*>(bytes),
                       static_cast<std::size_t>(gsf_output_size(sink.get())));
}

}  // namespace ssq::xls
