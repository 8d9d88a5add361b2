# The layers from the lowest up: each link unit, the link units below it, and its units of code (a header and its source are one
# unit, and so is every catalogue). A link unit links, and its files include, only itself and what is below it.
# This list is read twice: src/CMakeLists.txt makes the libraries from it, and cmake/check_includes.cmake checks every include.

link_unit(base "" app/debug_trace app/exit_code app/run_context app/run_options)

link_unit(languages base
  app/start_process lang/catalogue_texts lang/environment_locale lang/language_table lang/languages lang/resource
  lang/resource_factory lang/catalogues/*)

link_unit(files languages
  files/encoded_text_file files/license_copies files/license_text_set files/output_file files/paths
  files/status_file)

link_unit(locale_choice files lang/locale_choice)

link_unit(console locale_choice
  console/console_io console/dialog_run console/license_dialog console/line_breaking console/non_vur_pager
  console/printing console/screens console/settled_breaks console/terminal_geometry)

link_unit(driver console app/command_line app/run_driver)

link_unit(tools console
  console/code_page_loss console/terminal_columns files/atomic_directory files/directory_at
  files/license_fingerprint files/regular_file)

link_unit(consent tools
  consent/ask consent/audit consent/audit_report consent/call_words consent/command_lines consent/dialogue
  consent/legibility consent/owned_file consent/person consent/record consent/record_writer
  consent/scratch consent/store consent/terminal consent/terms consent/trusted_path consent/way_out)

executable(zev "driver;consent" app/main)

link_unit(authoring tools
  authoring/authoring_command_line authoring/character_checks authoring/commands authoring/finding authoring/html
  authoring/language_profile authoring/leftovers authoring/line_checks authoring/preview_command authoring/preview_page
  authoring/set_builder authoring/set_checks authoring/set_files authoring/shown_language authoring/text_checks
  authoring/text_comparison authoring/text_encoding authoring/text_facts)

executable(zev-licenses authoring authoring/main)

objects(icu_left_out shipped/icu_left_out)
objects(no_plugins shipped/no_plugins)
