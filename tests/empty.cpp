// Only so that the headers which all tests share have a target of their own.
