// Files dropped from a file manager on a Qt text box that accepts them.
#pragma once

namespace corvex::qt {

class QtHost;
class QtTextBox;

/// Makes box take dropped local files (text/uri-list) as one FilesDropped event, each file
/// named by its Windows name through the host's drive map; other drops stay Qt's.
void installFileDrop(QtTextBox& box, QtHost& host);

}  // namespace corvex::qt
