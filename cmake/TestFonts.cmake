# The fonts of the tests: a font configuration for each that knows no other font of the machine, so that what is
# measured and pictured is the same wherever the packages of tools/prepare are.
function(merlu_test_font look regular bold)
  set(folder ${CMAKE_BINARY_DIR}/fonts/${look})
  file(MAKE_DIRECTORY ${folder}/files)
  foreach(file ${regular} ${bold})
    find_path(place ${file} PATH_SUFFIXES share/fonts/truetype/dejavu share/fonts/truetype/liberation
      share/fonts/opentype/opendyslexic NO_CACHE)
    if(NOT place)
      message(FATAL_ERROR "The tests need the font ${file}: tools/prepare installs it.")
    endif()
    file(CREATE_LINK ${place}/${file} ${folder}/files/${file} SYMBOLIC)
    unset(place)
  endforeach()
  file(CONFIGURE OUTPUT ${folder}/fonts.conf CONTENT [[<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>@folder@/files</dir>
  <cachedir>@folder@/cache</cachedir>
</fontconfig>
]] @ONLY)
endfunction()

merlu_test_font(plain DejaVuSans.ttf DejaVuSans-Bold.ttf)
merlu_test_font(narrow LiberationSansNarrow-Regular.ttf LiberationSansNarrow-Bold.ttf)
merlu_test_font(wide OpenDyslexic-Regular.otf OpenDyslexic-Bold.otf)
