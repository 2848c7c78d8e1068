// Rich text as the common writers leave it, for tests of its reader.
#pragma once

#include <string>
#include <vector>

namespace merlu::test {

// The plain editor that comes with a desktop: no styles, older list marks.
inline const std::string kPlainEditor =
    R"({\rtf1\ansi\ansicpg1252\deff0\nouicompat\deflang1033{\fonttbl{\f0\fnil\fcharset0 Calibri;}{\f1\fnil\fcharset2 Symbol;}}
{\colortbl ;\red255\green0\blue0;}
{\*\generator Riched20 10.0.19041}\viewkind4\uc1 
\pard\sa200\sl276\slmult1\b\f0\fs36\lang9 Vent help\par
\b0\fs22 Gas leaves at 25\'b0 \cf1\i slowly\cf0\i0 .\par

\pard{\pntext\f1\'B7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'B7}}\fi-360\li720\sa200\sl276\slmult1 first\par
{\pntext\f1\'B7\tab}second \ul one\ulnone\par

\pard\sa200\sl276\slmult1 done\par
})";

// A large word processor: styles with outline levels, list texts in front, a table, a link, hidden bookmarks.
inline const std::string kWordProcessor =
    R"({\rtf1\adeflang1025\ansi\ansicpg1252\uc1\adeff31507\deff0\stshfdbch31505{\fonttbl{\f0\fbidi \froman\fcharset0\fprq2{\*\panose 02020603050405020304}Times New Roman;}
{\f3\fbidi \froman\fcharset2\fprq2 Symbol;}{\f40\fbidi \fswiss\fcharset238\fprq2 Arial CE;}}
{\stylesheet{\ql \li0\ri0\widctlpar \rtlch\fcs1 \af0\afs22 \ltrch\fcs0 \fs22 \snext0 \sqformat \spriority0 Normal;}
{\s1\ql \li0\keepn \outlinelevel0 \b\fs32 \sbasedon0 \snext0 \slink15 \sqformat heading 1;}{\*\cs10 \additive Default Paragraph Font;}
{\*\ts11\tsrowd\trftsWidthB3 Normal Table;}}
{\*\listtable{\list\listtemplateid1{\listlevel\levelnfc23{\leveltext\'01\u-3913 ?;}{\levelnumbers;}}}}{\*\rsidtbl \rsid1}
{\info{\title Secret title}{\author Nobody}}\paperw12240
\pard\plain \ltrpar\s1\ql\outlinelevel0\rin0\lin0 \rtlch\fcs1 \af0 \ltrch\fcs0 \b\fs32 {\*\bkmkstart _Toc1}{\rtlch\fcs1 \ltrch\fcs0 \insrsid1 Flow \u8222?and\u8220? heat}{\*\bkmkend _Toc1}{\par }
\pard\plain \ltrpar\ql \fs22 {\rtlch\fcs1 \ltrch\fcs0 \f40 \'b3\'f3d\'9f}{ See }{\field{\*\fldinst {\rtlch HYPERLINK "http://x.invalid/"}}{\fldrslt {\ul\cf2 the guide}}}{\sectd . }
{\*\shppict{\pict\pngblip\picw10 89504e470d0a1a0a}}{\nonshppict{\pict\wmetafile8 0100}}\par 
{\listtext\pard\plain\ltrpar \loch\af3\dbch\af0\hich\f3 \'b7\tab}\pard \ltrpar\ql \fi-360\li720\jclisttab\ls1\ilvl0 {Item one\par {\listtext\pard\plain \hich\f0 2.\tab}}\pard \fi-360\ls2\ilvl1 {Numbered\par }
\pard \ltrpar\trowd \irow0\trhdr\trgaph108\clbrdrt\brdrs\cellx4000\cellx8000\pard\intbl {\b Field\cell Rule\cell }\pard \ltrpar{\trowd\trhdr\cellx4000\cellx8000\row }
\trowd \cellx4000\cellx8000\pard\plain\intbl {Hours\cell 0 to 744\line at most\cell }\pard{\row }
\pard\plain {\v hidden}{after}\par }})";

// Another office suite: outline level at the paragraph, numbered style names, cell widths in front.
inline const std::string kOfficeSuite =
    R"({\rtf1\ansi\deff3\adeflang1025
{\fonttbl{\f0\froman\fprq2\fcharset0 Times New Roman;}{\f3\froman\fprq2\fcharset204 Liberation Serif;}}
{\stylesheet{\s0\snext0\widctlpar Default Style;}{\s15\sbasedon0\sb240\keepn\fs28 Heading;}{\s1\sbasedon15\outlinelevel0\b\fs36 Heading 1;}}
{\*\generator OfficeSuite/7}{\info{\creatim\yr2017}}
\pard\plain \s1\outlinelevel0\b\fs36{\loch Glycol}
\par \pard\plain \s0{\f3\'cf\'f0\'e8\'e2\'e5\'f2}{\loch , }{\loch\u1087\'3f\u1088\'3f}
\par \trowd\trql\cellx3000\cellx6000\pard\plain\s0\intbl{a}\cell{b}\cell\row\pard\pard\plain{end}
\par })";

// The text editor of another desktop: its own marks for line ends, a code page of its own.
inline const std::string kOtherDesktop = std::string(
    R"({\rtf1\mac\ansicpg10000\cocoartf2513
\cocoatextscaling0{\fonttbl\f0\fswiss\fcharset77 Helvetica;\f1\fmodern\fcharset77 Courier;}
{\*\expandedcolortbl;;}\margl1440\pard\tx560\pardirnatural
\f0\b\fs48 Storage\
\fs24\b0 Dome \'8eclair\
\f1 code\f0 \
\'a5 typed bullet\
})");

inline std::vector<std::string> RtfSamples() {
  return {kPlainEditor, kWordProcessor, kOfficeSuite, kOtherDesktop};
}

}  // namespace merlu::test
