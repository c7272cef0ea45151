;;; drive.el --- Drives Emacs with eglot beside the language server  -*- lexical-binding: t -*-

;; Emacs edits a form with the settings that the page about editors tells. Ends with 1 and a line on
;; the standard error at the first thing that is not as it should be.

;;; Code:

(package-initialize)
(require 'eglot)
(require 'flymake)
(require 'xref)

(defconst patience 30)
(defconst folder (file-name-as-directory (getenv "ZORVA_FOLDER")))
(defconst form (concat folder "emacs.zorva"))

(defun fail (what)
  (message "not seen: %s\n%s" what (buffer-string))
  (kill-emacs 1))

(defun expect (what condition)
  "Waits until CONDITION gives something, and gives it; says WHAT was waited for if it never does."
  (let ((end (+ (float-time) patience)) found)
    (while (not (setq found (funcall condition)))
      (when (> (float-time) end)
        (fail what))
      (accept-process-output nil 0.02)
      ;; What an editor with a screen does between two keys.
      (run-hooks 'post-command-hook)
      (eglot--signal-textDocument/didChange))
    found))

(defun load-settings ()
  "As the page about editors tells them."
  (with-temp-buffer
    (insert-file-contents (getenv "ZORVA_PAGE"))
    (search-forward "```elisp\n")
    (let ((begin (point)))
      (search-forward "\n```")
      (eval-region begin (match-beginning 0)))))

(defun go-to (text)
  "Puts the cursor behind the first occurrence of TEXT."
  (goto-char (point-min))
  (search-forward text))

(defun has (text)
  (save-excursion
    (goto-char (point-min))
    (search-forward text nil t)))

(defun finding (text)
  "The finding that says TEXT; nil if there is none."
  (seq-find (lambda (found) (string-match-p (regexp-quote text) (flymake-diagnostic-text found)))
            (flymake-diagnostics)))

(defun offered ()
  "The words that are offered where the cursor is."
  (let ((completion (eglot-completion-at-point)))
    (when completion
      (mapcar #'substring-no-properties
              (all-completions (buffer-substring (nth 0 completion) (point)) (nth 2 completion))))))

(load-settings)
(copy-file (getenv "ZORVA_FORM") form t)
(find-file form)
(unless (eq major-mode 'zorva-mode)
  (fail "the mode of forms"))
;; `eglot-ensure' waits for the end of a command, of which there is none here.
(expect "the server" #'eglot-managed-p)

;; A mistake is seen, and mended by its fix.
(go-to "<Property name=\"labelT")
(delete-char -1)
(insert "t")
(let ((found (expect "the finding about a property" (lambda () (finding "no property `labeltext`")))))
  (unless (= (line-number-at-pos (flymake-diagnostic-beg found)) (line-number-at-pos))
    (fail "the finding at its line"))
  ;; By the keyboard, and what is preferred is taken.
  (cl-letf ((last-nonmenu-event ?\r)
            ((symbol-function 'completing-read)
             (lambda (_prompt _choices _predicate _match _initial _history preferred) preferred)))
    (eglot-code-actions (flymake-diagnostic-beg found) (flymake-diagnostic-end found) nil t)))
(unless (has "<Property name=\"labelText\">")
  (fail "the fix"))
(expect "no finding any more" (lambda () (not (finding "labeltext"))))

;; Classes, where one is begun.
(go-to "<Widget name=\"squelch\" class")
(beginning-of-line)
(insert "<Widget name=\"extra\" class=\"Sp")
(let ((words (expect "classes" #'offered)))
  (unless (and (member "SpinBox" words) (member "SpinBoxList" words) (not (member "ComboBox" words)))
    (fail (format "other classes offered than those that begin so: %s" words))))
(delete-region (line-beginning-position) (point))

;; From a row to its enumeration.
(go-to "<String>Demodulations")
(let ((found (expect "the enumeration" (lambda ()
                       (xref-backend-definitions 'eglot (xref-backend-identifier-at-point 'eglot))))))
  (unless (string-match-p "<Enum name=\"Demodulations\">" (xref-item-summary (car found)))
    (fail "the line of the enumeration")))

;; Another name for a row, in the description and in the script.
(go-to "name=\"vol")
(eglot-rename "loudness")
(unless (and (has "<Widget name=\"loudness\" class=\"SpinBox\">")
             (has "loudness.setEnabled(source != AudioSources.AUDIO_NONE)"))
  (fail "the new name"))

;; Layout, which puts everything back where it was but for the name.
(go-to "<Property name=\"MainFreqEdit\">")
(delete-region (line-beginning-position) (match-beginning 0))
(eglot-format-buffer)
(go-to "<Property name=\"MainFreqEdit\">")
(unless (string-match-p "\\`  +<" (buffer-substring (line-beginning-position) (point)))
  (fail "the layout"))

(set-buffer-modified-p nil)
(eglot-shutdown (eglot-current-server))
(kill-emacs 0)

;;; drive.el ends here
