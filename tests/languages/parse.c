// Parses files and says where they do not follow the grammar.
//
//   parse GRAMMAR FILE...     GRAMMAR is vba or powershell
//
// One line for each place, "FILE:LINE: ..."; the exit status is 1 when there is any, 2 when a file cannot be read.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <tree_sitter/api.h>

const TSLanguage* tree_sitter_vba(void);
const TSLanguage* tree_sitter_powershell(void);

static unsigned Faults(const char* path, const char* text, TSNode node) {
  const TSPoint start = ts_node_start_point(node);
  if (ts_node_is_missing(node)) {
    printf("%s:%u: %s is missing\n", path, start.row + 1, ts_node_type(node));
    return 1;
  }
  if (ts_node_is_error(node)) {
    const unsigned from = ts_node_start_byte(node);
    const int length = (int)strcspn(text + from, "\r\n");
    printf("%s:%u: not understood: %.*s\n", path, start.row + 1, length, text + from);
    return 1;
  }
  unsigned faults = 0;
  for (unsigned i = 0; i < ts_node_child_count(node); ++i) faults += Faults(path, text, ts_node_child(node, i));
  return faults;
}

// The whole file with a null character after it; null when it cannot be read.
static char* TextOf(const char* path) {
  FILE* file = fopen(path, "rb");
  if (file == NULL) return NULL;
  fseek(file, 0, SEEK_END);
  const long size = ftell(file);
  rewind(file);
  char* text = calloc((size_t)size + 1, 1);
  if (text != NULL && fread(text, 1, (size_t)size, file) != (size_t)size) {
    free(text);
    text = NULL;
  }
  fclose(file);
  return text;
}

int main(int count, char** words) {
  if (count < 3) {
    fprintf(stderr, "parse: a grammar and files are needed\n");
    return 2;
  }
  TSParser* parser = ts_parser_new();
  const TSLanguage* language = strcmp(words[1], "vba") == 0 ? tree_sitter_vba() : tree_sitter_powershell();
  if (!ts_parser_set_language(parser, language)) {
    fprintf(stderr, "parse: the grammar is of another version than the parser\n");
    return 2;
  }
  unsigned faults = 0;
  for (int i = 2; i < count; ++i) {
    char* text = TextOf(words[i]);
    if (text == NULL) {
      fprintf(stderr, "parse: %s cannot be read\n", words[i]);
      return 2;
    }
    TSTree* tree = ts_parser_parse_string(parser, NULL, text, (uint32_t)strlen(text));
    faults += Faults(words[i], text, ts_tree_root_node(tree));
    ts_tree_delete(tree);
    free(text);
  }
  ts_parser_delete(parser);
  return faults > 0;
}
