// Nothing: what counts is that it links.
int main() {
  return 0;
}
