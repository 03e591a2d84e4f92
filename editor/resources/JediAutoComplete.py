#Autocompletion module
import jedi
	
def autoComplete(textToComplete):
	namespace = locals()
	
	interpreter = jedi.Interpreter(textToComplete, [namespace])
	completions = interpreter.completions()
	return [x.name for x in completions]
