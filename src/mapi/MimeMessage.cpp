#include "mapi/MimeMessage.h"

#include "mapi/MimeHeader.h"
#include "text/Text.h"

#include <gmime/gmime.h>
#include <memory>
#include <mutex>

namespace turnpost {

namespace {

struct Release {
    void operator()(void* object) const { g_object_unref(object); }
    void operator()(char* text) const { g_free(text); }
    void operator()(GDateTime* time) const { g_date_time_unref(time); }
};

template <typename T> using Owned = std::unique_ptr<T, Release>;

template <typename T> Owned<T> own(T* object) {
    return Owned<T>(object);
}

std::string bytesOf(const Owned<GMimeStream>& memory) {
    const GByteArray* array = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(memory.get()));
    return {reinterpret_cast<const char*>(array->data), array->len};
}

// Sets the part's content; `encoding` says how `bytes` are encoded, DEFAULT that they are raw.
void setContent(GMimePart* part, const std::string& bytes, GMimeContentEncoding encoding) {
    const auto stream = own(g_mime_stream_mem_new_with_buffer(bytes.data(), bytes.size()));
    const auto content = own(g_mime_data_wrapper_new_with_stream(stream.get(), encoding));
    g_mime_part_set_content(part, content.get());
}

// Quoted-printable keeps blanks at the end of a line. The second filter protects lines that a
// mailbox file would take for the start of a message.
std::string quotedPrintable(const std::string& text) {
    const auto memory = own(g_mime_stream_mem_new());
    const auto filtered = own(g_mime_stream_filter_new(memory.get()));
    const auto quote = own(g_mime_filter_basic_new(GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE, true));
    const auto armour = own(g_mime_filter_from_new(GMIME_FILTER_FROM_MODE_ARMOR));
    g_mime_stream_filter_add(GMIME_STREAM_FILTER(filtered.get()), quote.get());
    g_mime_stream_filter_add(GMIME_STREAM_FILTER(filtered.get()), armour.get());
    g_mime_stream_write(filtered.get(), text.data(), text.size());
    g_mime_stream_flush(filtered.get());
    std::string encoded = bytesOf(memory);
    // A soft line break, because a mail system adds a line end to a last line that has none.
    if (!encoded.empty() && encoded.back() != '\n') {
        encoded += "=\n";
    }
    return encoded;
}

Owned<GMimePart> textPart(const std::string& text) {
    auto part = own(g_mime_part_new_with_type("text", "plain"));
    g_mime_object_set_content_type_parameter(GMIME_OBJECT(part.get()), "charset", "utf-8");
    g_mime_part_set_content_encoding(part.get(), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    setContent(part.get(), quotedPrintable(withCrLf(text)), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    return part;
}

// Moves the bytes into the part.
Owned<GMimePart> filePart(MimeFile& file) {
    auto part = own(g_mime_part_new_with_type("application", "octet-stream"));
    g_mime_part_set_filename(part.get(), oneLine(file.name).c_str());
    g_mime_part_set_content_encoding(part.get(), GMIME_CONTENT_ENCODING_BASE64);
    setContent(part.get(), file.bytes, GMIME_CONTENT_ENCODING_DEFAULT);
    std::string().swap(file.bytes);
    return part;
}

void addAddress(GMimeMessage* message, GMimeAddressType field, const MimeAddress& address) {
    g_mime_message_add_mailbox(message, field, headerText(address.name).c_str(),
                               address.address.c_str());
}

void setIdentity(GMimeMessage* message, const std::string& sender) {
    const auto now = own(g_date_time_new_now_local());
    g_mime_message_set_date(message, now.get());
    // The domain in its ASCII form.
    const auto mailbox = own(internet_address_mailbox_new(nullptr, sender.c_str()));
    const std::string address =
        internet_address_mailbox_get_idn_addr(INTERNET_ADDRESS_MAILBOX(mailbox.get()));
    const size_t at = address.rfind('@');
    const std::string domain = at == std::string::npos ? "localhost" : address.substr(at + 1);
    const auto identifier = own(g_mime_utils_generate_message_id(domain.c_str()));
    g_mime_message_set_message_id(message, identifier.get());
}

void setBody(GMimeMessage* message, MimeMessage& values) {
    const auto text = textPart(values.text);
    if (values.files.empty()) {
        g_mime_message_set_mime_part(message, GMIME_OBJECT(text.get()));
        return;
    }
    const auto parts = own(g_mime_multipart_new_with_subtype("mixed"));
    g_mime_multipart_add(parts.get(), GMIME_OBJECT(text.get()));
    for (MimeFile& file : values.files) {
        g_mime_multipart_add(parts.get(), GMIME_OBJECT(filePart(file).get()));
    }
    g_mime_message_set_mime_part(message, GMIME_OBJECT(parts.get()));
}

void initialise() {
    static std::once_flag once;
    std::call_once(once, g_mime_init);
}

} // namespace

std::string mimeBytes(MimeMessage values) {
    initialise();
    auto message = own(g_mime_message_new(true));
    if (!values.from.address.empty()) {
        addAddress(message.get(), GMIME_ADDRESS_TYPE_FROM, values.from);
    }
    for (const MimeAddress& address : values.to) {
        addAddress(message.get(), GMIME_ADDRESS_TYPE_TO, address);
    }
    for (const MimeAddress& address : values.cc) {
        addAddress(message.get(), GMIME_ADDRESS_TYPE_CC, address);
    }
    g_mime_message_set_subject(message.get(), headerText(values.subject).c_str(), "utf-8");
    setIdentity(message.get(), values.from.address);
    size_t room = 0;
    for (const MimeFile& file : values.files) {
        room += file.bytes.size() * 3 / 2;
    }
    setBody(message.get(), values);
    // Allocated at once: growing step by step would raise the peak memory.
    const auto memory = own(
        g_mime_stream_mem_new_with_byte_array(g_byte_array_sized_new(static_cast<guint>(room))));
    g_mime_stream_mem_set_owner(GMIME_STREAM_MEM(memory.get()), true);
    g_mime_object_write_to_stream(GMIME_OBJECT(message.get()), nullptr, memory.get());
    message.reset();
    return bytesOf(memory);
}

} // namespace turnpost
