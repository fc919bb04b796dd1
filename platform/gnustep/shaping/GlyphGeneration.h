#pragma once

/// To be called when the text or the attributes of any layout manager have changed: the glyphs that
/// are generated next are not those of the paragraph that was looked at last. Any thread.
void forgetLastParagraph();
