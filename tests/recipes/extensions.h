// What the extended program has beyond the program: what its rows name.
#pragma once

namespace merlu {

struct SheetSpec;
struct Session;
struct Request;
struct Console;
enum class Status;

const SheetSpec& TARNE_COM();
void OpenCompressorHours(Session& s);
Status TellHours(const Request& request, Console& console);

}  // namespace merlu
