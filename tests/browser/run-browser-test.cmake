# Writes the gallery pages into OUT_DIR/gallery, then checks them in headless Chromium; the
# screenshots of the pages are left in OUT_DIR/screenshots.
if(NOT NODE)
  message(FATAL_ERROR "Node.js was not found when the build was configured: install Debian's "
                      "nodejs and npm, run \"npm ci\" in ${TEST_DIR}, and configure again.")
endif()
set(gallery "${OUT_DIR}/gallery")
set(screenshots "${OUT_DIR}/screenshots")
file(REMOVE_RECURSE "${gallery}" "${screenshots}")
execute_process(COMMAND "${WRITER}" "${TEST_DIR}/gallery.json" "${gallery}" RESULT_VARIABLE written)
if(NOT written EQUAL 0)
  message(FATAL_ERROR "write_gallery_pages failed (${written})")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" -E env "GALLERY_DIR=${gallery}"
  "SCREENSHOT_DIR=${screenshots}" "${NODE}" --test-reporter=tap "${TEST_DIR}/gallery.test.mjs"
  RESULT_VARIABLE checked)
if(NOT checked EQUAL 0)
  message(FATAL_ERROR "The browser check of the gallery pages failed; screenshots in ${screenshots}")
endif()
