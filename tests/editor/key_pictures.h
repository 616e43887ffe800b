// What keys do in the ticket editor, as pictures. The same table runs over the rules and over the
// real control.
#pragma once

#include <array>

namespace varno {

struct KeyPicture {
    const char* before;
    const char* keys;
    const char* after;
};

inline constexpr std::array KeyPictures{
    // Behind a marker only Backspace does something; afterwards the caret is in front of it.
    KeyPicture{"abc¬|\ndef", "x", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "7", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<Enter>", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<Del>", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<A-A>", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<BS>", "abc|\ndef"},
    KeyPicture{"abc¬|", "x", "abc|¬"},
    KeyPicture{"{g}ab{k}¬|\n", "x", "{g}ab|{k}¬\n"},

    // The caret keeps out of line ends and takes the role it stands in.
    KeyPicture{"abc¬|\ndef", "<Click>", "abc|¬\ndef"},
    KeyPicture{"abc|¬\ndef", "<Click>", "abc|¬\ndef"},
    KeyPicture{"abc¬[\nd]ef", "<F5>", "abc¬[\nd]ef"},
    KeyPicture{"a|bc", "<Right><Right>x", "abcx|"},
    KeyPicture{"abc|¬\ndef", "<Right>", "abc|¬\ndef"},
    KeyPicture{"abc¬\n|def", "<Left>", "abc|¬\ndef"},
    KeyPicture{"ab\n|cd", "<Left>", "ab|\ncd"},
    KeyPicture{"ab|\ncd", "<Right>", "ab\n|cd"},
    KeyPicture{"{m}A27|{k}b", "<Click>", "{m}A27|{k}b"},
    KeyPicture{"{x}ab|", "<Click>", "{x}ab{k}|"},
    KeyPicture{"{gBIUS}ab|", "<Click>x", "{gBIUS}ab{g}x|"},
    KeyPicture{"{b}P012|", "<Ins>", "{b}P012|"},
    KeyPicture{"|{g}ab", "<Click>x", "x|{g}ab"},

    // Letters are black, except in a comment.
    KeyPicture{"{r}C005|", "x", "{r}C005{k}x|"},
    KeyPicture{"{r}C0|05", "x", "{r}C0{k}x|{r}05"},
    KeyPicture{"{b}P012|", "é", "{b}P012{k}é|"},
    KeyPicture{"{r}C005{g} NET|", "to.", "{r}C005{g} NETto.|"},
    KeyPicture{"{r}C005{g}| NET", "x", "{r}C005{g}x| NET"},
    KeyPicture{"{r}C005|{g} NET", "x", "{r}C005{k}x|{g} NET"},
    KeyPicture{"{r}C005|", "<F5>7", "{r}C005{k}7|"},
    KeyPicture{"a[{r}C005]{k}b", "x", "ax|b"},
    KeyPicture{"a[{g}net]{k}b", "x", "a{g}x|{k}b"},
    KeyPicture{"a[{r}C0{g} net]{k}b", "x", "a{g}x|{k}b"},
    KeyPicture{"a[{r}C005]{k}b", "<C-C>", "a[{r}C005]{k}b"},

    // With Alt nothing is typed; the typing format becomes black.
    KeyPicture{"{g}ab|", "<A-X>", "{g}ab{k}|"},
    KeyPicture{"{r}C|", "12<A-X>34", "{r}C12{k}34|"},

    // Digits: three in a row take the colour of what stands before them.
    KeyPicture{"|", "12345", "12345|"},
    KeyPicture{"{r}C|", "12345", "{r}C123{k}45|"},
    KeyPicture{"{r}C005|", "7", "{r}C0057|"},
    KeyPicture{"{b}P|", "<Pad0><Pad5><Pad9><Pad1>", "{b}P059{k}1|"},
    KeyPicture{"{m}A|", "2<C-7>", "{m}A27|"},
    KeyPicture{"{r}C|", "12<Left><Right>34", "{r}C1234|"},
    KeyPicture{"{r}C|", "12<BS>34", "{r}C134|"},
    KeyPicture{"{r}C|", "12<Click>34", "{r}C123{k}4|"},
    KeyPicture{"{r}C|", "12x34", "{r}C12{k}x34|"},
    KeyPicture{"{r}C|", "12/34", "{r}C12{k}/34|"},
    KeyPicture{"{r}C|", "12<C-S-F5>34", "{r}C123{k}4|"},
    KeyPicture{"{g}net |", "1234", "{g}net 123{k}4|"},
    KeyPicture{"a[{r}C0]{k}b", "7", "a{r}7|{k}b"},

    // Space: a marker for the ticket, a real one for a comment.
    KeyPicture{"ab|", " ", "ab÷|"},
    KeyPicture{"ab|", "<S-Space>", "ab÷|"},
    KeyPicture{"ab|", "<C-Space>x y", "ab{g} x y|"},
    KeyPicture{"{r}C005|", " ", "{r}C005{k}÷|"},
    KeyPicture{"{g}net|", " ", "{g}net |"},
    KeyPicture{"{g}n|et", "<S-Space>", "{g}n |et"},
    KeyPicture{"a[bc]d", " ", "a÷|d"},

    // Enter: a printed line end, or with Ctrl a line break only.
    KeyPicture{"ab|cd", "<Enter>", "ab¬\n|cd"},
    KeyPicture{"ab|cd", "<S-Enter>", "ab¬\n|cd"},
    KeyPicture{"ab|cd", "<C-Enter>", "ab\n|cd"},
    KeyPicture{"{r}C0|05", "<Enter>", "{r}C0{k}¬\n|{r}05"},
    KeyPicture{"{g}ab|", "<C-Enter>x", "{g}ab\nx|"},
    KeyPicture{"a[bc]d", "<Enter>", "a¬\n|d"},
    KeyPicture{"|", "<Enter><Enter>a", "¬\n¬\na|"},

    // Delete and Backspace take a line end as a whole.
    KeyPicture{"abc|¬\ndef", "<Del>", "abc|def"},
    KeyPicture{"abc¬\n|def", "<BS>", "abc|def"},
    KeyPicture{"{g}ab{k}¬\n|def", "<BS>", "{g}ab|{k}def"},
    KeyPicture{"|¬\n¬\n", "<Del>", "|¬\n"},
    KeyPicture{"¬\n|¬\n", "<BS>", "|¬\n"},
    KeyPicture{"ab|\ncd", "<Del>", "ab|cd"},
    KeyPicture{"ab\n|cd", "<BS>", "ab|cd"},
    KeyPicture{"a|bc", "<Del>", "a|c"},
    KeyPicture{"ab|c", "<BS>", "a|c"},
    KeyPicture{"|abc", "<BS>", "|abc"},
    KeyPicture{"abc|", "<Del>", "abc|"},
    KeyPicture{"abc|¬", "<Del>", "abc|"},
    KeyPicture{"a[bc]d", "<Del>", "a|d"},
    KeyPicture{"a[{r}C005]{k}d", "<BS>", "a|d"},
    KeyPicture{"ab[{m}A7]", "<Del>12", "ab{k}12|"},
    KeyPicture{"[{g}net]", "<BS>Total", "{k}Total|"},
    KeyPicture{"{r}C005\n[{k}ab]", "<Del>7", "{r}C005\n7|"},
    KeyPicture{"{r}C0[{k}¬\nb]", "<Del>7", "{r}C07|"},
    KeyPicture{"a[{r}C0{g} net]{k}b", "7", "a{g}7|{k}b"},
    KeyPicture{"a[¬]\nb", "<Del>", "a|b"},
    // What a selection leaves goes through the rules again.
    KeyPicture{"a¬\n[b]cd", "<BS>", "a|cd"},
    KeyPicture{"a¬\n¬\n[b¬\nc]d", "<BS>", "a¬\n|d"},
    KeyPicture{"a¬\n[¬]\nb", "<BS>", "a|\nb"},
    KeyPicture{"a[¬\n]¬\nb", "<Del>", "a|b"},
};

}  // namespace varno
