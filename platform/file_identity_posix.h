// What a file is, apart from its name and content.
#pragma once

namespace varno {

// Gives an open file the owner, group, extended attributes (access control lists among them) and
// rights of another. False if not all of them can be given.
bool CopyIdentity(int from, int to);

}  // namespace varno
